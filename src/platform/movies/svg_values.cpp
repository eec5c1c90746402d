// The small languages inside the attributes of a drawing: numbers, lists, colours.
#include "platform/movies/svg_values.h"

#include <charconv>
#include <cmath>

namespace platform {
namespace {

constexpr double LargestNumber = 1e6;

bool IsDigit(char letter)
{
    return letter >= '0' && letter <= '9';
}
bool IsLetterOrDigit(char letter)
{
    return IsDigit(letter) || (letter >= 'a' && letter <= 'z') || (letter >= 'A' && letter <= 'Z');
}
bool IsGap(char letter)
{
    return letter == ' ' || letter == ',' || letter == '\t' || letter == '\n' || letter == '\r';
}

} // namespace

std::optional<double> ScanNumber(const QByteArray &text, int &position)
{
    int at = position;
    const int size = static_cast<int>(text.size());
    while (at < size && IsGap(text[at]))
        ++at;
    // The library reads a minus sign but no plus sign, and words like "inf" that are no numbers.
    if (at < size && text[at] == '+')
        ++at;
    const int digits = at < size && text[at] == '-' ? at + 1 : at;
    if (digits >= size || !(IsDigit(text[digits]) || text[digits] == '.'))
        return std::nullopt;
    double number = 0;
    const auto [end, error] =
        std::from_chars(text.constData() + at, text.constData() + size, number);
    if (error == std::errc::invalid_argument)
        return std::nullopt;
    if (error == std::errc::result_out_of_range)
        number = HUGE_VAL;
    position = static_cast<int>(end - text.constData());
    return number;
}

std::optional<std::vector<double>> NumberList(const QByteArray &text)
{
    std::vector<double> numbers;
    int position = 0;
    while (const auto number = ScanNumber(text, position))
        numbers.push_back(*number);
    while (position < text.size() && IsGap(text[position]))
        ++position;
    if (position < text.size())
        return std::nullopt;
    return numbers;
}

QList<QByteArray> SplitTrimmed(const QByteArray &text, char separator)
{
    QList<QByteArray> parts = text.split(separator);
    for (QByteArray &part : parts)
        part = part.trimmed();
    if (parts.last().isEmpty())
        parts.removeLast();
    return parts;
}

QSet<QByteArray> Names(const QByteArray &text)
{
    const QList<QByteArray> names = text.split(' ');
    return {names.begin(), names.end()};
}

std::optional<double> ClockValue(const QByteArray &text)
{
    const QByteArray clock = text.trimmed();
    int position = 0;
    const auto number = ScanNumber(clock, position);
    if (!number || std::abs(*number) > LargestNumber)
        return std::nullopt;
    const QByteArray unit = clock.mid(position);
    if (unit.isEmpty() || unit == "s")
        return *number * 1000;
    if (unit == "ms")
        return *number;
    return std::nullopt;
}

bool NumbersAreSane(const QByteArray &text)
{
    int position = 0;
    const int size = static_cast<int>(text.size());
    while (position < size) {
        if (text[position] == '#') { // a colour such as #1e9999 is no number
            ++position;
            while (position < size && IsLetterOrDigit(text[position]))
                ++position;
            continue;
        }
        if (const auto number = ScanNumber(text, position)) {
            if (!(std::abs(*number) <= LargestNumber))
                return false;
        } else {
            ++position;
        }
    }
    return true;
}

} // namespace platform
