// The keyboard of the machine.
#pragma once

#include "platform/controls/held_keys.h"

namespace platform {

// The X server sends a release and a press for each repeat of a held key, which cannot be told from
// real ones; asked for detectable auto-repeat it sends presses only. Nothing on other systems.
void AskForDetectableAutoRepeat();

// Told by X servers and by Windows.
KeysDown KeysDownNow();

} // namespace platform
