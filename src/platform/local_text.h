// Numbers as the person's system writes them on the screen.
#pragma once

#include <QString>

namespace platform {

// With that many decimals and no sign between thousands.
QString LocalNumber(double value, int decimals);

} // namespace platform
