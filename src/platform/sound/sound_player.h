// Plays sounds through the desktop's sound server.
#pragma once

#include <QString>

namespace platform {

// Plays the file at once and cuts off what still plays; returns before the first sample. Silent
// when there is no file, no device or no server, and heard again when the server is back.
void PlaySoundFile(const QString &nativePath);

} // namespace platform
