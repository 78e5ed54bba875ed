#include "reports/qrCode.h"

#include "base/RuntimeError.h"

#include <qrencode.h>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

constexpr int quietModules = 4;
/// So many that a printer which smooths pictures leaves the edges sharp.
constexpr int pixelsPerModule = 16;

} // namespace

QImage qrCode(const QString &text)
{
    const std::unique_ptr<QRcode, decltype(&QRcode_free)> code(
        QRcode_encodeString(text.toUtf8().constData(), 0, QR_ECLEVEL_M, QR_MODE_8, 1), QRcode_free);
    if (!code)
        throw RuntimeError(Fault::FileFault, u"The text is too long for a QR code."_s, text);
    const int width = code->width + 2 * quietModules;
    QImage modules(width, width, QImage::Format_Mono);
    modules.setColorTable({qRgb(255, 255, 255), qRgb(0, 0, 0)});
    modules.fill(0);
    for (int y = 0; y < code->width; ++y) {
        for (int x = 0; x < code->width; ++x) {
            if (code->data[y * code->width + x] & 1)
                modules.setPixel(x + quietModules, y + quietModules, 1);
        }
    }
    return modules.scaled(modules.size() * pixelsPerModule);
}
