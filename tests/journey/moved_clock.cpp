// Loaded before the program: its clock of the day is moved by what a file holds, in seconds, while
// the clock that timers run by goes on.
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <dlfcn.h>
#include <sys/time.h>

namespace {

long Moved()
{
    static const char *const path = std::getenv("MOVED_CLOCK");
    long seconds = 0;
    if (std::FILE *file = path == nullptr ? nullptr : std::fopen(path, "r")) {
        if (std::fscanf(file, "%ld", &seconds) != 1)
            seconds = 0;
        std::fclose(file);
    }
    return seconds;
}

template <class Function> Function Real(const char *name)
{
    return reinterpret_cast<Function>(::dlsym(RTLD_NEXT, name));
}

} // namespace

extern "C" {

int clock_gettime(clockid_t which, timespec *now) noexcept
{
    static const auto real = Real<int (*)(clockid_t, timespec *)>("clock_gettime");
    const int result = real(which, now);
    if (result == 0 && which == CLOCK_REALTIME)
        now->tv_sec += Moved();
    return result;
}

int gettimeofday(timeval *now, void *) noexcept
{
    timespec time{};
    const int result = clock_gettime(CLOCK_REALTIME, &time);
    now->tv_sec = time.tv_sec;
    now->tv_usec = time.tv_nsec / 1000;
    return result;
}

time_t time(time_t *into) noexcept
{
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    if (into != nullptr)
        *into = now.tv_sec;
    return now.tv_sec;
}
}
