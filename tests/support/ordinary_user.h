// Runs a check as an ordinary user in a child process: as root every test of rights passes for
// nothing.
#pragma once

#include <QByteArray>

#include <cstdio>
#include <functional>
#include <sys/wait.h>
#include <unistd.h>

// Gives the empty text when `check` does, else what it says. The child ends without its
// destructors.
inline QByteArray AsOrdinaryUser(const std::function<QByteArray()> &check)
{
    constexpr int Nobody = 65534;
    int pipes[2] = {};
    if (::pipe(pipes) != 0)
        return "no pipe";
    const pid_t child = ::fork();
    if (child < 0)
        return "no child";
    if (child == 0) {
        QByteArray result = "still root";
        if (::getuid() != 0 || (::setgid(Nobody) == 0 && ::setuid(Nobody) == 0))
            result = check();
        const ssize_t written =
            ::write(pipes[1], result.constData(), static_cast<size_t>(result.size()));
        ::_exit(written == result.size() ? 0 : 1);
    }
    ::close(pipes[1]);
    QByteArray said;
    char buffer[256];
    for (ssize_t got = 0; (got = ::read(pipes[0], buffer, sizeof buffer)) > 0;)
        said.append(buffer, static_cast<qsizetype>(got));
    ::close(pipes[0]);
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0 ? said : said + " (the child ended badly)";
}
