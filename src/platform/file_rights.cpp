#include "platform/file_rights.h"

#include "platform/errors.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#ifdef Q_OS_UNIX
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace platform {

#ifdef Q_OS_UNIX

namespace {

constexpr mode_t ReadWrite = 0666;
constexpr mode_t AllBits = 07777;

[[noreturn]] void Raise(const QString &path)
{
    switch (errno) {
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        throw RunTimeError(DiskFull, path);
    case EACCES:
    case EPERM:
    case EROFS:
        throw RunTimeError(PermissionDenied, path);
    case ENOENT:
    case ENOTDIR:
        throw RunTimeError(PathNotFound, path);
    default:
        throw RunTimeError(PathFileAccess, path);
    }
}

struct stat ParentOf(const QString &native)
{
    struct stat parent = {};
    if (::stat(QFile::encodeName(QFileInfo(native).path()).constData(), &parent) != 0)
        Raise(native);
    return parent;
}

// An open file that closes itself.
class Descriptor {
public:
    Descriptor(const QString &native, bool make) : m_path(native)
    {
        const QByteArray name = QFile::encodeName(native);
        m_number = ::open(name.constData(), O_WRONLY | O_NOFOLLOW | O_CLOEXEC | O_NONBLOCK);
        if (m_number < 0 && errno == ENOENT && make) {
            const mode_t rights = ParentOf(native).st_mode & ReadWrite;
            m_number = ::open(name.constData(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC,
                              rights);
            if (m_number >= 0 && ::fchmod(m_number, rights) != 0)
                Raise(native);
        }
        if (m_number < 0)
            Raise(native);
        struct stat what = {};
        if (::fstat(m_number, &what) != 0 || !S_ISREG(what.st_mode)) {
            ::close(m_number);
            throw RunTimeError(PathFileAccess, native);
        }
    }
    ~Descriptor() { ::close(m_number); }
    Descriptor(const Descriptor &) = delete;
    Descriptor &operator=(const Descriptor &) = delete;

    void Write(const QByteArray &content)
    {
        qsizetype done = 0;
        while (done < content.size()) {
            const ssize_t written = ::write(m_number, content.constData() + done,
                                            static_cast<size_t>(content.size() - done));
            if (written < 0 && errno == EINTR)
                continue;
            if (written < 0)
                Raise(m_path);
            done += written;
        }
        if (::ftruncate(m_number, content.size()) != 0)
            Raise(m_path);
    }

private:
    QString m_path;
    int m_number = -1;
};

} // namespace

void MakeFolderLikeParent(const QString &native)
{
    QString path = native;
    while (path.size() > 1 && path.endsWith(QLatin1Char('/')))
        path.chop(1);
    const mode_t rights = ParentOf(path).st_mode & AllBits;
    const QByteArray name = QFile::encodeName(path);
    if (::mkdir(name.constData(), rights) != 0)
        Raise(path);
    // Past the mask of the process; a group comes by the parent's set-group bit.
    if (::chmod(name.constData(), rights) != 0)
        Raise(path);
}

void WriteWhole(const QString &native, const QByteArray &content)
{
    Descriptor(native, true).Write(content);
}

void ProbeForWriting(const QString &native)
{
    const QByteArray name = QFile::encodeName(native);
    struct stat what = {};
    if (::lstat(name.constData(), &what) == 0)
        Descriptor(native, false);
    else if (::access(QFile::encodeName(QFileInfo(native).path()).constData(), W_OK | X_OK) != 0)
        Raise(native);
}

#else

void MakeFolderLikeParent(const QString &native)
{
    if (!QDir().mkdir(native))
        throw RunTimeError(PathFileAccess, native);
}

void WriteWhole(const QString &native, const QByteArray &content)
{
    QFile file(native);
    if (!file.open(QIODevice::ReadWrite))
        throw RunTimeError(PermissionDenied, native);
    if (file.write(content) != content.size() || !file.flush() || !file.resize(content.size()))
        throw RunTimeError(DiskFull, native);
}

void ProbeForWriting(const QString &native)
{
    const bool there = QFileInfo::exists(native);
    QFile file(native);
    if (!file.open(QIODevice::ReadWrite))
        throw RunTimeError(PermissionDenied, native);
    if (!there)
        file.remove();
}

#endif

} // namespace platform
