// A script ends the program by a signal: what has run is counted all the same.
#include <csignal>

extern "C" void __gcov_dump(void);

[[maybe_unused]] static const auto Before = std::signal(SIGTERM, [](int number) {
    __gcov_dump();
    std::signal(number, SIG_DFL);
    std::raise(number);
});
