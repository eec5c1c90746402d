// Runs a piece of a test as an ordinary user in a process of its own. As root every test of rights
// would pass for nothing, so the piece first proves that a plain write is refused.
#pragma once

#include <QByteArray>
#include <QTemporaryDir>

#include <exception>
#include <functional>

#include <fcntl.h>
#include <grp.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

constexpr uid_t FirstUser = 65534;
constexpr uid_t SecondUser = 23456;

inline bool CanChangeUser()
{
    return ::geteuid() == 0;
}

namespace as_user {

inline QByteArray Judge(const QByteArray &forbidden, const std::function<QByteArray()> &piece)
{
    const int number = ::open((forbidden + "/file").constData(), O_WRONLY | O_CREAT, 0600);
    if (number >= 0)
        return "a plain write passed, so rights would be tested for nothing";
    // Left to itself an error would start the test's crash handler in this process.
    try {
        return piece();
    } catch (const std::exception &error) {
        return QByteArray("an error left the piece: ") + error.what();
    }
}

} // namespace as_user

// The piece gives an empty text when all was right. Without the right to change the user it runs as
// the user of the test, who is an ordinary one then.
inline QByteArray AsUser(uid_t user, gid_t group, const std::function<QByteArray()> &piece)
{
    QTemporaryDir folder;
    const QByteArray forbidden = folder.path().toUtf8();
    ::chmod(forbidden.constData(), 0555);
    int ends[2] = {};
    if (::pipe(ends) != 0)
        return "no pipe";
    const pid_t child = ::fork();
    if (child == 0) {
        QByteArray verdict;
        if (CanChangeUser() &&
            (::setgroups(1, &group) != 0 || ::setgid(group) != 0 || ::setuid(user) != 0))
            verdict = "the user could not be changed";
        else
            verdict = as_user::Judge(forbidden, piece);
        if (::write(ends[1], verdict.constData(), static_cast<size_t>(verdict.size())) < 0)
            ::_exit(2);
        ::_exit(verdict.isEmpty() ? 0 : 1);
    }
    ::close(ends[1]);
    QByteArray verdict;
    char buffer[4096];
    for (ssize_t count = 0; (count = ::read(ends[0], buffer, sizeof buffer)) > 0;)
        verdict.append(buffer, count);
    ::close(ends[0]);
    int status = 0;
    ::waitpid(child, &status, 0);
    if (verdict.isEmpty() && status != 0)
        verdict = "the process ended with status " + QByteArray::number(status);
    return verdict;
}

// As a user who owns nothing of the test's.
inline QByteArray AsOrdinaryUser(const std::function<QByteArray()> &piece)
{
    return AsUser(FirstUser, FirstUser, piece);
}

// For use in a piece: leaves it with a text when a condition does not hold.
#define HOLDS(condition)                                                                           \
    do {                                                                                           \
        if (!(condition))                                                                          \
            return QByteArray("line " + QByteArray::number(__LINE__) + ": " #condition);           \
    } while (false)
