#include "devices/shell.h"

#include <QDesktopServices>
#include <QUrl>

namespace shell {

namespace {
std::function<void(const QString &)> &opener()
{
    static std::function<void(const QString &)> replacement;
    return replacement;
}
} // namespace

void openFile(const QString &path)
{
    if (opener())
        opener()(path);
    else
        QDesktopServices::openUrl(QUrl::fromLocalFile(path));
}

void replaceOpener(std::function<void(const QString &)> replacement)
{
    opener() = std::move(replacement);
}

} // namespace shell
