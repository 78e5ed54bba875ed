#include "app/backup.h"
#include "base/RuntimeError.h"
#include "base/session.h"
#include "cases.h"
#include "store/DataEnvironment.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <zlib.h>

#include <unistd.h>

using namespace Qt::StringLiterals;

namespace bench {

namespace {

constexpr int rounds = 4;
constexpr int gzipWindow = MAX_WBITS + 16;

QString folder()
{
    const QString path = session::ProgramFolder + u"/backup"_s;
    QDir().mkpath(path);
    return path;
}

bool goesOn(qint64, qint64)
{
    return true;
}

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw RuntimeError(Fault::FileFault, path);
    return file.readAll();
}

QByteArray packedByHand(const QByteArray &content)
{
    z_stream stream = {};
    deflateInit2(&stream, 9, Z_DEFLATED, gzipWindow, 8, Z_DEFAULT_STRATEGY);
    QByteArray packed(
        static_cast<qsizetype>(deflateBound(&stream, static_cast<uLong>(content.size()))), Qt::Uninitialized);
    stream.next_in = reinterpret_cast<Bytef *>(const_cast<char *>(content.data()));
    stream.avail_in = static_cast<uInt>(content.size());
    stream.next_out = reinterpret_cast<Bytef *>(packed.data());
    stream.avail_out = static_cast<uInt>(packed.size());
    deflate(&stream, Z_FINISH);
    packed.truncate(static_cast<qsizetype>(stream.total_out));
    deflateEnd(&stream);
    return packed;
}

QByteArray unpackedByHand(const QByteArray &packed, qsizetype size)
{
    z_stream stream = {};
    inflateInit2(&stream, gzipWindow);
    QByteArray content(size, Qt::Uninitialized);
    stream.next_in = reinterpret_cast<Bytef *>(const_cast<char *>(packed.data()));
    stream.avail_in = static_cast<uInt>(packed.size());
    stream.next_out = reinterpret_cast<Bytef *>(content.data());
    stream.avail_out = static_cast<uInt>(size);
    inflate(&stream, Z_FINISH);
    content.truncate(static_cast<qsizetype>(stream.total_out));
    inflateEnd(&stream);
    return content;
}

qint64 outcomeOf(const QByteArray &content)
{
    return static_cast<qint64>(qHash(content));
}

/// The file, packed into another one that is on the disk, and read and unpacked again. The outcome stands for its
/// bytes.
Run packedAndBack()
{
    QByteArray back;
    Run run = timed([&back] {
        const QByteArray content = contentOf(session::DBPath);
        QFile file(folder() + u"/by hand.gz"_s);
        if (!file.open(QIODevice::WriteOnly) || file.write(packedByHand(content)) < 0 || !file.flush()
            || fsync(file.handle()) != 0)
            throw RuntimeError(Fault::FileFault, file.fileName());
        file.close();
        back = unpackedByHand(contentOf(file.fileName()), content.size());
        return back == content;
    });
    run.outcome = outcomeOf(back);
    return run;
}

Case backupCase()
{
    Case work{u"backup of the full shop with its proof"_s, 1.5};
    work.rounds = rounds;
    work.ours = [] {
        Run run = timed([] { return backup::make(DE().CN.content(), folder(), goesOn); });
        const qint64 size = QFileInfo(session::DBPath).size();
        run.outcome = outcomeOf(unpackedByHand(contentOf(backup::find(folder())), size));
        return run;
    };
    work.byHand = packedAndBack;
    return work;
}

Case restoreCase()
{
    Case work{u"restore of the full shop with its proof, by hand pack and unpack"_s, 1.5};
    work.rounds = rounds;
    work.ours = [] {
        const QString packed = backup::find(folder());
        if (packed.isEmpty())
            static_cast<void>(backup::make(DE().CN.content(), folder(), goesOn));
        backup::Restored restored;
        Run run = timed([&restored] {
            restored = backup::restore(folder() + u"/CVbackup.gz"_s, goesOn);
            return 0;
        });
        QFile::remove(restored.keptAs);
        DE().CN.open(session::DBPath);
        run.outcome = outcomeOf(contentOf(session::DBPath));
        return run;
    };
    work.byHand = packedAndBack;
    return work;
}

} // namespace

std::vector<Case> houseCases()
{
    return {backupCase(), restoreCase()};
}

} // namespace bench
