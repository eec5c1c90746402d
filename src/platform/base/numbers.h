// Numbers as a person reads and writes them, with the signs of the place.
#pragma once

#include <QString>

namespace platform {

// With groups of thousands and at most two decimals, whose sign stays also when none follow it:
// "1.234,5", "12,".
QString FormatGrouped(double value);

// The same back, groups and all; error 13 for what is no number, 6 for one too large.
float ToSingle(const QString &text);

} // namespace platform
