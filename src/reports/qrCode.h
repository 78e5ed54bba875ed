#pragma once

#include <QImage>
#include <QString>

/// The text as a QR code, dark on light, with the quiet margin that scanners ask for. It can be read while no more
/// than a seventh of it is dirty or worn. Throws RuntimeError (FileFault) for a text that no code has room for.
[[nodiscard]] QImage qrCode(const QString &text);
