// The font of a text on paper, whose unit is the twip, so that it is measured alike for every
// printer.
#pragma once

#include "platform/base/font.h"

class QFont;

namespace platform {

QFont FontInTwips(const Font &font);

} // namespace platform
