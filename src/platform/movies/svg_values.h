// The small languages inside the attributes of a drawing: numbers, lists, colours.
#pragma once

#include <QByteArray>
#include <QList>
#include <QSet>

#include <optional>
#include <vector>

namespace platform {

// The number that starts at `position`, which moves behind it; blanks and commas ahead of it are
// skipped. Nothing, and the position stays, where no number stands.
std::optional<double> ScanNumber(const QByteArray &text, int &position);

// All of the text as numbers; nothing when something else stands in it.
std::optional<std::vector<double>> NumberList(const QByteArray &text);

// Parts between separators, blanks round them taken off; an empty last part is left out.
QList<QByteArray> SplitTrimmed(const QByteArray &text, char separator);

// The words of a text.
QSet<QByteArray> Names(const QByteArray &text);

// Plain seconds: "2", "2s", "1.5s", "500ms", also negative. In milliseconds.
std::optional<double> ClockValue(const QByteArray &text);

// True when no number in the text is larger than what a drawing can mean: such numbers are only
// good for keeping the renderer busy.
bool NumbersAreSane(const QByteArray &text);

} // namespace platform
