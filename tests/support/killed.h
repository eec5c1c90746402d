// Runs a piece of a test in a process of its own and kills that at a system call, as the end of a
// process at the worst moment does.
#pragma once

#include <cerrno>
#include <functional>
#include <sys/ptrace.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

enum class Fate { Killed, Ended, Refused };

// The nth call, from 1, is not made any more. `Ended` when the piece makes fewer, `Refused` where
// one process may not watch another.
inline Fate KilledAtCall(int number, const std::function<void()> &piece)
{
    const pid_t child = ::fork();
    if (child == 0) {
        if (::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0)
            ::_exit(1);
        ::raise(SIGSTOP);
        piece();
        ::_exit(0);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    // Each call stops the process twice, before and after it.
    for (int stop = 0; WIFSTOPPED(status) && stop < 2 * number - 1; ++stop) {
        ::ptrace(PTRACE_SYSCALL, child, nullptr, nullptr);
        ::waitpid(child, &status, 0);
    }
    if (WIFEXITED(status))
        return WEXITSTATUS(status) == 0 ? Fate::Ended : Fate::Refused;
    ::kill(child, SIGKILL);
    ::waitpid(child, &status, 0);
    return Fate::Killed;
}
