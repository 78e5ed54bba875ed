#include "Store.h"

#include "base/session.h"
#include "pictures/pictureFile.h"

using namespace Qt::StringLiterals;

namespace faults {

namespace {

/// A picture of a garment is kept, in place of the one that has its path: a note over a photo.
class KeptPicture : public Task {
public:
    explicit KeptPicture(Random random)
        : m_picture(100 + random.below(100), 80 + random.below(60), QImage::Format_RGB32),
          m_path(session::programPath(u"images/Asha_%1.bmp"_s.arg(1 + random.below(2))))
    {
        m_picture.fill(qRgb(random.below(256), random.below(256), random.below(256)));
    }
    void run() override { pictureFile::save(m_picture, m_path); }

private:
    QImage m_picture;
    QString m_path;
};

} // namespace

std::vector<Store> pictureStores()
{
    return {{u"picture"_s, [](const Random &random) { return std::make_unique<KeptPicture>(random); }}};
}

} // namespace faults
