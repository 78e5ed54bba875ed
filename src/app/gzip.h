#pragma once

#include <QByteArrayView>
#include <QString>

#include <functional>

/// Files packed in the way of gzip, which every system can unpack.
namespace gzip {

/// Takes the next piece.
using Sink = std::function<void(QByteArrayView piece)>;
/// `done` bytes of `total` are done; false breaks off.
using At = std::function<bool(qint64 done, qint64 total)>;

/// Packs `content` as well as can be (level 9) and gives it to `sink` piece by piece; counted is what was packed. False
/// where it was broken off.
[[nodiscard]] bool pack(QByteArrayView content, const Sink &sink, const At &at);

/// Unpacks the file at `path` to `sink`; counted is what was read. False where it was broken off. Throws RuntimeError:
/// FileFault where it cannot be read, Damaged where it is cut short, changed, or was never packed so. What came until
/// then has gone to `sink`.
[[nodiscard]] bool unpack(const QString &path, const Sink &sink, const At &at);

} // namespace gzip
