#include "platform/files/own_folder.h"

#include <QDir>
#include <QFileInfo>

#ifndef Q_OS_WIN
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace platform {

#ifndef Q_OS_WIN

namespace {

// Nobody else can put a file or a link there.
bool IsOwn(const QString &folder)
{
    struct stat found = {};
    return ::lstat(QFile::encodeName(folder).constData(), &found) == 0 && S_ISDIR(found.st_mode) &&
           found.st_uid == ::geteuid() && (found.st_mode & (S_IWGRP | S_IWOTH)) == 0 &&
           QFileInfo(folder).isWritable();
}

} // namespace

QString OwnFolder()
{
    const QString session = qEnvironmentVariable("XDG_RUNTIME_DIR");
    if (!session.isEmpty() && IsOwn(session))
        return session + QLatin1Char('/');
    const QString cache = QDir::homePath() + QStringLiteral("/.cache");
    if (IsOwn(QDir::homePath()))
        QDir().mkdir(cache);
    if (IsOwn(cache))
        return cache + QLatin1Char('/');
    // Among the temporary files another user may have taken a name, or several.
    constexpr int MostNames = 100;
    const QString name = QDir::tempPath() + QStringLiteral("/morlenekvt-%1").arg(::geteuid());
    for (int i = 0; i < MostNames; ++i) {
        const QString folder = i == 0 ? name : name + QStringLiteral("-%1").arg(i);
        ::mkdir(QFile::encodeName(folder).constData(), S_IRWXU);
        if (IsOwn(folder))
            return folder + QLatin1Char('/');
    }
    return {};
}

#else

QString OwnFolder()
{
    return QDir::tempPath() + QLatin1Char('/');
}

#endif

} // namespace platform
