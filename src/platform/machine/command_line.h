// What stands behind the program's name when it is started, and whether there is a screen for it.
#pragma once

#include <optional>

namespace platform {

// Answers what needs no window: the version, the help, a word that is not known, and the lack of a
// screen. Gives the status to end with, nothing when the program is to go on. To be called before
// there is an application, since the toolkit ends the process itself when it finds no screen.
std::optional<int> AnswerCommandLine(int argc, char **argv, const char *version);

} // namespace platform
