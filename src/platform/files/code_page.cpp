// Code page 1252: the 32 letters that differ from the first 256 of Unicode.
#include "platform/files/files.h"

#include <QList>

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

char ToByte(char32_t letter)
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
    // A letter beyond 16 bits is one letter, so one "?".
    const QList<uint> letters = text.toUcs4();
    for (const char32_t letter : letters) {
        // Digits of another script are the same numbers. What only says in which direction the
        // text runs, as dates of some places do, is nothing to read.
        if (letter > 0xFF && QChar::isDigit(letter))
            bytes.append(static_cast<char>('0' + QChar::digitValue(letter)));
        else if (letter <= 0xFF || QChar::category(letter) != QChar::Other_Format)
            bytes.append(ToByte(letter));
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
