// What the mouse pointer looks like, by its classic numbers.
#pragma once

namespace platform {

enum class MousePointer { Default = 0, Hourglass = 11, Custom = 99 };

} // namespace platform
