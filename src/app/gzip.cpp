#include "app/gzip.h"

#include "base/RuntimeError.h"

#include <QFile>
#include <QScopeGuard>

#include <zlib.h>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype pieceSize = 256 * 1024;
/// The engine's largest window, and its own wrapping instead of the plain one.
constexpr int gzipWindow = MAX_WBITS + 16;
constexpr int memoryLevel = 8;

void give(z_stream &stream, QByteArrayView piece)
{
    stream.next_in = reinterpret_cast<Bytef *>(const_cast<char *>(piece.data()));
    stream.avail_in = static_cast<uInt>(piece.size());
}

/// Room for what comes out.
class Outlet {
public:
    void open(z_stream &stream)
    {
        stream.next_out = reinterpret_cast<Bytef *>(m_room.data());
        stream.avail_out = static_cast<uInt>(m_room.size());
    }
    [[nodiscard]] QByteArrayView filled(const z_stream &stream) const
    {
        return QByteArrayView(m_room).chopped(stream.avail_out);
    }

private:
    QByteArray m_room = QByteArray(pieceSize, Qt::Uninitialized);
};

[[noreturn]] void refuse(const QString &why, const QString &path)
{
    throw RuntimeError(Fault::Damaged, why, path, Written::Nothing);
}

} // namespace

bool gzip::pack(QByteArrayView content, const Sink &sink, const At &at)
{
    z_stream stream = {};
    if (deflateInit2(&stream, Z_BEST_COMPRESSION, Z_DEFLATED, gzipWindow, memoryLevel, Z_DEFAULT_STRATEGY) != Z_OK)
        throw RuntimeError(Fault::Engine, u"There is not enough memory."_s, {}, Written::Nothing);
    const auto end = qScopeGuard([&stream] { deflateEnd(&stream); });
    Outlet outlet;
    qsizetype done = 0;
    do {
        if (!at(done, content.size()))
            return false;
        const QByteArrayView piece = content.sliced(done, std::min(pieceSize, content.size() - done));
        done += piece.size();
        give(stream, piece);
        do {
            outlet.open(stream);
            deflate(&stream, done < content.size() ? Z_NO_FLUSH : Z_FINISH);
            sink(outlet.filled(stream));
        } while (stream.avail_out == 0);
    } while (done < content.size());
    return at(done, content.size());
}

bool gzip::unpack(const QString &path, const Sink &sink, const At &at)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw RuntimeError(
            Fault::FileFault, u"The file cannot be read: %1."_s.arg(file.errorString()), path, Written::Nothing);
    z_stream stream = {};
    if (inflateInit2(&stream, gzipWindow) != Z_OK)
        throw RuntimeError(Fault::Engine, u"There is not enough memory."_s, path, Written::Nothing);
    const auto end = qScopeGuard([&stream] { inflateEnd(&stream); });
    Outlet outlet;
    int state = Z_OK;
    qint64 done = 0;
    while (state != Z_STREAM_END) {
        if (!at(done, file.size()))
            return false;
        const QByteArray piece = file.read(pieceSize);
        if (file.error() != QFile::NoError)
            throw RuntimeError(
                Fault::FileFault, u"The file cannot be read: %1."_s.arg(file.errorString()), path, Written::Nothing);
        if (piece.isEmpty())
            refuse(done == 0 ? u"The file is empty."_s : u"The file was cut short: its end is missing."_s, path);
        give(stream, piece);
        do {
            outlet.open(stream);
            state = inflate(&stream, Z_NO_FLUSH);
            if (state != Z_OK && state != Z_STREAM_END && state != Z_BUF_ERROR)
                refuse(done == 0 && stream.total_out == 0
                        ? u"The file was not packed by gzip, or its beginning is damaged."_s
                        : u"The file is damaged: what it holds was changed."_s,
                    path);
            sink(outlet.filled(stream));
        } while (state == Z_OK && stream.avail_out == 0);
        done += piece.size();
    }
    if (stream.avail_in > 0 || !file.atEnd())
        refuse(u"The file is damaged: more follows behind its end."_s, path);
    return at(done, file.size());
}
