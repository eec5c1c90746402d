#pragma once

namespace platform {

// The X server sends a release and a press for each repeat of a held key, which cannot be told from
// real ones; asked for detectable auto-repeat it sends presses only. Nothing on other systems.
void AskForDetectableAutoRepeat();

} // namespace platform
