#include "cases.h"
#include "pictures/Thumbnails.h"

#include <QDir>
#include <QEventLoop>
#include <QImageReader>
#include <QPainter>
#include <QTemporaryDir>
#include <QThread>

#include <atomic>
#include <random>
#include <thread>

using namespace Qt::StringLiterals;

namespace bench {

namespace {

constexpr int photoCount = 200;
constexpr int distinctPhotos = 4;
constexpr QSize photoSize(4000, 3000);

/// A photo of a cloth: no two threads of it are alike.
QImage cloth(unsigned seed)
{
    QImage photo(photoSize, QImage::Format_RGB32);
    std::minstd_rand random(seed);
    for (int y = 0; y < photo.height(); ++y) {
        auto *line = reinterpret_cast<QRgb *>(photo.scanLine(y));
        for (int x = 0; x < photo.width(); ++x) {
            const int shade = (x * 3 + y * 5) / 200 % 160 + static_cast<int>(random() % 24);
            line[x] = qRgb(shade + 40, shade + (x / 500) * 9, shade);
        }
    }
    return photo;
}

/// A folder of photos, a few distinct ones under many names.
class Album {
public:
    /// Made with the first case that wants it.
    void make()
    {
        if (!m_names.isEmpty())
            return;
        for (int i = 0; i < photoCount; ++i) {
            const QString name = u"%1.jpg"_s.arg(i, 3, 10, QChar(u'0'));
            const QString path = m_folder.filePath(name);
            if (i < distinctPhotos)
                cloth(static_cast<unsigned>(i) + 1).save(path, "JPG", 90);
            else
                QFile::copy(m_folder.filePath(m_names.at(i % distinctPhotos)), path);
            m_names += name;
        }
    }
    [[nodiscard]] QString path() const { return m_folder.path(); }
    [[nodiscard]] const QStringList &names() const { return m_names; }

private:
    QTemporaryDir m_folder;
    QStringList m_names;
};

/// How many of the thumbnails could be made.
qint64 makeThumbnails(const Album &album)
{
    Thumbnails thumbnails(1);
    QEventLoop loop;
    qint64 made = 0;
    QObject::connect(&thumbnails, &Thumbnails::dataChanged, &loop,
        [&](const QModelIndex &index) { made += thumbnails.reasonOf(index.row()).isEmpty() ? 1 : 0; });
    QObject::connect(&thumbnails, &Thumbnails::progressed, &loop, [&loop](int done, int total) {
        if (done == total)
            loop.quit();
    });
    thumbnails.list(album.path(), album.names());
    loop.exec();
    return made;
}

QImage loadScaled(const QString &path)
{
    QImageReader reader(path);
    reader.setScaledSize(photoSize.scaled(Thumbnails::side, Thumbnails::side, Qt::KeepAspectRatio));
    return reader.read();
}

qint64 loadAllScaled(const Album &album)
{
    std::atomic<qsizetype> next = 0;
    std::atomic<qint64> made = 0;
    std::vector<std::jthread> threads;
    for (int i = 0; i < QThread::idealThreadCount(); ++i) {
        threads.emplace_back([&] {
            for (qsizetype row = next++; row < album.names().size(); row = next++)
                made += loadScaled(album.path() + u'/' + album.names().at(row)).isNull() ? 0 : 1;
        });
    }
    threads.clear();
    return made;
}

Case allThumbnails(const std::shared_ptr<Album> &album)
{
    Case work{u"thumbnails of 200 photos of 12 megapixels"_s, 1.2};
    work.rounds = 3;
    work.ours = [album] {
        album->make();
        return timed([&] { return makeThumbnails(*album); });
    };
    work.byHand = [album] { return timed([&] { return loadAllScaled(*album); }); };
    return work;
}

Case firstThumbnail(const std::shared_ptr<Album> &album)
{
    Case work{u"first thumbnail of 200 photos of 12 megapixels"_s, 3.0};
    work.most = std::chrono::milliseconds(100);
    work.ours = [album] {
        album->make();
        // Without the waiting for what is in hand when the list is left.
        Run run;
        const auto start = Clock::now();
        Thumbnails thumbnails(1);
        QEventLoop loop;
        QObject::connect(&thumbnails, &Thumbnails::progressed, &loop, [&] {
            run = {Clock::now() - start, 1};
            loop.quit();
        });
        thumbnails.list(album->path(), album->names());
        loop.exec();
        return run;
    };
    work.byHand = [album] {
        return timed([&] { return loadScaled(album->path() + u'/' + album->names().constFirst()).isNull() ? 0 : 1; });
    };
    return work;
}

} // namespace

std::vector<Case> pictureCases()
{
    const auto album = std::make_shared<Album>();
    return {firstThumbnail(album), allThumbnails(album)};
}

} // namespace bench
