#include "base/windows1252.h"

#include <algorithm>
#include <array>

namespace {

constexpr char16_t firstOwn = 0x80;
constexpr char16_t firstLatin = 0xa0;
constexpr char16_t lastLatin = 0xff;

/// What stands between the ASCII and the Latin-1 half of the page.
constexpr std::array<char16_t, firstLatin - firstOwn> ownPlaces{0x20ac, 0x0081, 0x201a, 0x0192, 0x201e, 0x2026, 0x2020,
    0x2021, 0x02c6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008d, 0x017d, 0x008f, 0x0090, 0x2018, 0x2019, 0x201c, 0x201d,
    0x2022, 0x2013, 0x2014, 0x02dc, 0x2122, 0x0161, 0x203a, 0x0153, 0x009d, 0x017e, 0x0178};

char byteOf(QChar character)
{
    const char16_t code = character.unicode();
    if (code < firstOwn || (code >= firstLatin && code <= lastLatin))
        return static_cast<char>(code);
    const auto *const place = std::ranges::find(ownPlaces, code);
    return place == ownPlaces.end() ? '?' : static_cast<char>(firstOwn + (place - ownPlaces.begin()));
}

} // namespace

QByteArray windows1252(QStringView text)
{
    QByteArray bytes(text.size(), Qt::Uninitialized);
    char *next = bytes.data();
    for (auto character = text.begin(); character != text.end(); ++character) {
        *next++ = byteOf(*character);
        // Two halves make one character.
        if (character->isHighSurrogate() && character + 1 != text.end() && (character + 1)->isLowSurrogate())
            ++character;
    }
    bytes.truncate(next - bytes.constData());
    return bytes;
}
