// The program on any host: the table of its windows, and the start.
#pragma once

namespace platform {
class Host;
}

// Answers its command line, or runs until the last window has gone; gives the exit status of the
// process.
int RunProgram(int argc, char **argv, platform::Host &host);
