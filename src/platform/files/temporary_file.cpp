#include "platform/files/temporary_file.h"

#include "platform/base/errors.h"

#include <QDir>
#include <QFile>
#include <QTemporaryFile>

namespace platform {

QString MakeTemporaryFile(const QString &prefix)
{
    QTemporaryFile file(QDir::tempPath() + QLatin1Char('/') + prefix +
                        QStringLiteral("XXXXXX.tmp"));
    file.setAutoRemove(false);
    if (!file.open())
        throw RunTimeError(PathFileAccess, QDir::tempPath());
    return file.fileName();
}

void RemoveTemporaryFile(const QString &nativePath)
{
    if (!QFile::exists(nativePath))
        throw RunTimeError(FileNotFound, nativePath);
    if (!QFile::remove(nativePath))
        throw RunTimeError(PathFileAccess, nativePath);
}

} // namespace platform
