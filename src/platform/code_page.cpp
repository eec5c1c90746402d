// Code page 1252: the 32 letters that differ from the first 256 of Unicode.
#include "platform/files.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace platform {

namespace {

constexpr int First = 0x80;

// The five places that the code page leaves open stand for themselves.
constexpr std::array<char16_t, 32> Letters = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

char ToByte(char16_t letter)
{
    if (letter < 0x80 || (letter >= 0xA0 && letter <= 0xFF))
        return static_cast<char>(letter);
    const auto *found = std::find(Letters.begin(), Letters.end(), letter);
    return found == Letters.end()
               ? '?'
               : static_cast<char>(First + std::distance(Letters.begin(), found));
}

} // namespace

QByteArray ToCodePage(const QString &text)
{
    QByteArray bytes;
    bytes.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        bytes.append(ToByte(text.at(i).unicode()));
        // A letter beyond 16 bits is one letter, so one "?".
        if (text.at(i).isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate())
            ++i;
    }
    return bytes;
}

QString FromCodePage(const QByteArray &bytes)
{
    QString text;
    text.reserve(bytes.size());
    for (const char byte : bytes) {
        const auto value = static_cast<unsigned char>(byte);
        const bool listed = value >= 0x80 && value < 0xA0;
        text.append(QChar(listed ? Letters.at(value - First) : char16_t{value}));
    }
    return text;
}

} // namespace platform
