// Files and folders by descriptors: every folder on the way is opened by name in the one before, so
// that nobody can put a link in its place between a check and the use.
#include "platform/files/file_access.h"

#include <QtGlobal>

#ifndef Q_OS_WIN

#include "platform/base/errors.h"

#include <QFile>

#include <algorithm>
#include <cerrno>
#include <ctime>
#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace platform {

namespace {

constexpr mode_t ReadWrite = 0666;
constexpr mode_t AllRights = 07777;
constexpr int64_t NanosecondsInSecond = 1'000'000'000;
constexpr int64_t SettleTime = 50'000'000; // nanoseconds; a tick of a file system is up to 10 ms
// No file of this program comes near; more would only use up the memory.
constexpr int64_t LongestContent = int64_t{256} * 1024 * 1024; // bytes

#ifdef O_PATH
constexpr int ForPassing = O_PATH;
#else
constexpr int ForPassing = O_RDONLY;
#endif

[[noreturn]] void Raise(int reason, const QString &path, int whenMissing)
{
    switch (reason) {
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
        throw RunTimeError(whenMissing, path);
    case EEXIST:
        throw RunTimeError(FileAlreadyExists, path);
    case ENAMETOOLONG:
        throw RunTimeError(BadFileNameOrNumber, path);
    default:
        throw RunTimeError(PathFileAccess, path);
    }
}

// An open file or folder that closes itself.
class Descriptor {
public:
    explicit Descriptor(int number = -1) : m_number(number) {}
    ~Descriptor() { Close(); }
    Descriptor(Descriptor &&other) noexcept : m_number(std::exchange(other.m_number, -1)) {}
    Descriptor &operator=(Descriptor &&other) noexcept
    {
        std::swap(m_number, other.m_number);
        return *this;
    }
    int Number() const { return m_number; }
    bool IsOpen() const { return m_number >= 0; }
    // False when the file system reports late that content was not written.
    bool Close()
    {
        if (!IsOpen())
            return true;
        return ::close(std::exchange(m_number, -1)) == 0 || errno == EINTR;
    }

private:
    int m_number;
};

QByteArray Encoded(const QString &name)
{
    return QFile::encodeName(name);
}

int NoFollow(const FilePlace &place)
{
    return place.OnDrive ? O_NOFOLLOW : 0;
}

// The folder at the place itself; not open and `errno` set on failure.
Descriptor OpenFolder(const FilePlace &place, int lastMode)
{
    const bool rootIsLast = place.Parts.isEmpty();
    Descriptor folder(::open(Encoded(place.Root).constData(),
                             (rootIsLast ? lastMode : ForPassing) | O_DIRECTORY | O_CLOEXEC));
    for (qsizetype i = 0; i < place.Parts.size() && folder.IsOpen(); ++i) {
        const int mode = i + 1 == place.Parts.size() ? lastMode : ForPassing;
        folder = Descriptor(::openat(folder.Number(), Encoded(place.Parts.at(i)).constData(),
                                     mode | O_DIRECTORY | O_CLOEXEC | NoFollow(place)));
    }
    return folder;
}

bool Examine(const FilePlace &place, struct stat &what)
{
    if (place.Parts.isEmpty())
        return ::stat(Encoded(place.Root).constData(), &what) == 0;
    const Descriptor folder = OpenFolder(place.Folder(), ForPassing);
    return folder.IsOpen() && ::fstatat(folder.Number(), Encoded(place.Name()).constData(), &what,
                                        place.OnDrive ? AT_SYMLINK_NOFOLLOW : 0) == 0;
}

Nature NatureOf(const struct stat &what)
{
    if (S_ISREG(what.st_mode))
        return Nature::File;
    return S_ISDIR(what.st_mode) ? Nature::Folder : Nature::Other;
}

int64_t Nanoseconds(const struct timespec &time)
{
    return int64_t{time.tv_sec} * NanosecondsInSecond + time.tv_nsec;
}

// Two users who save one player at once would leave a mixture of both. A file is read or written in
// far less than a millisecond; who is stopped in the middle of that must not hold up everybody
// else.
void AwaitTurn(const FilePlace &place, const Descriptor &file, int kind)
{
    constexpr int LongestTurn = 100; // looks, one a millisecond
    constexpr struct timespec BetweenLooks = {0, 1'000'000};
    if (!place.OnDrive)
        return;
    for (int look = 0; look < LongestTurn; ++look) {
        if (::flock(file.Number(), kind | LOCK_NB) == 0 || errno != EWOULDBLOCK)
            return;
        ::nanosleep(&BetweenLooks, nullptr);
    }
}

// For one call: what is made with the rights that it shall have cannot be left without them by a
// process that ends right behind the call. A mask that takes the owner's rights would also keep the
// owner out of a new folder.
class LiftedMask {
public:
    LiftedMask() : m_mask(::umask(0)) {}
    ~LiftedMask()
    {
        const int reason = errno;
        ::umask(m_mask);
        errno = reason;
    }
    LiftedMask(const LiftedMask &) = delete;
    LiftedMask &operator=(const LiftedMask &) = delete;

private:
    mode_t m_mask;
};

// A new file or folder takes the group of its folder where the system lets it.
void TakeGroupAndRights(int number, const struct stat &folder, mode_t rights, const QString &path)
{
    struct stat made = {};
    if (::fstat(number, &made) != 0)
        Raise(errno, path, PathNotFound);
    // The owner of a folder need not be of its group: then the group stays the owner's.
    if (made.st_gid != folder.st_gid &&
        ::fchown(number, static_cast<uid_t>(-1), folder.st_gid) != 0)
        errno = 0;
    if (::fchmod(number, rights) != 0)
        Raise(errno, path, PathNotFound);
}

} // namespace

Nature NatureOf(const FilePlace &place)
{
    struct stat what = {};
    return Examine(place, what) ? NatureOf(what) : Nature::Missing;
}

Stamp StampOf(const FilePlace &place)
{
    struct timespec now = {};
    ::clock_gettime(CLOCK_REALTIME, &now);
    struct stat what = {};
    if (!Examine(place, what))
        Raise(errno, place.Native(), FileNotFound);
    if (NatureOf(what) != Nature::File)
        throw RunTimeError(PathFileAccess, place.Native());
    Stamp stamp;
    stamp.Device = what.st_dev;
    stamp.Inode = what.st_ino;
    stamp.Size = what.st_size;
    stamp.Modified = Nanoseconds(what.st_mtim);
    stamp.Changed = Nanoseconds(what.st_ctim);
    // Who changes a file may set its time back, but not the time of that.
    stamp.Settled = std::max(stamp.Modified, stamp.Changed) < Nanoseconds(now) - SettleTime;
    return stamp;
}

QByteArray ReadAll(const FilePlace &place)
{
    const QString path = place.Native();
    if (place.Parts.isEmpty())
        throw RunTimeError(PathFileAccess, path);
    const Descriptor folder = OpenFolder(place.Folder(), ForPassing);
    if (!folder.IsOpen())
        Raise(errno, path, FileNotFound);
    // Without O_NONBLOCK a pipe would wait for its writer.
    const Descriptor file(::openat(folder.Number(), Encoded(place.Name()).constData(),
                                   O_RDONLY | O_NONBLOCK | O_CLOEXEC | NoFollow(place)));
    if (!file.IsOpen())
        Raise(errno, path, FileNotFound);
    AwaitTurn(place, file, LOCK_SH);
    struct stat what = {};
    if (::fstat(file.Number(), &what) != 0)
        Raise(errno, path, FileNotFound);
    if (NatureOf(what) != Nature::File || what.st_size > LongestContent)
        throw RunTimeError(PathFileAccess, path);
    QByteArray content(what.st_size, Qt::Uninitialized);
    qsizetype done = 0;
    while (done < content.size()) {
        const ssize_t count = ::read(file.Number(), content.data() + done,
                                     static_cast<size_t>(content.size() - done));
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            Raise(errno, path, FileNotFound);
        if (count == 0)
            break;
        done += count;
    }
    content.truncate(done);
    return content;
}

QStringList NamesIn(const FilePlace &folder, bool folders)
{
    Descriptor opened = OpenFolder(folder, O_RDONLY);
    if (!opened.IsOpen()) {
        // A link in place of the folder is told from a folder that is not there.
        const int reason = errno;
        if (NatureOf(folder) == Nature::Other)
            throw RunTimeError(PathFileAccess, folder.Native());
        if (reason == ENOENT || reason == ENOTDIR)
            return {};
        Raise(reason, folder.Native(), PathNotFound);
    }
    // The stream gets a descriptor of its own and closes it.
    DIR *stream = ::fdopendir(::fcntl(opened.Number(), F_DUPFD_CLOEXEC, 0));
    if (stream == nullptr)
        Raise(errno, folder.Native(), PathNotFound);
    QStringList names;
    while (const struct dirent *entry = ::readdir(stream)) {
        const QByteArray bytes(entry->d_name);
        const QString name = QFile::decodeName(bytes);
        // A name that is no text could not be opened by its text either.
        if (bytes == "." || bytes == ".." || Encoded(name) != bytes)
            continue;
        struct stat what = {};
        if (::fstatat(opened.Number(), entry->d_name, &what,
                      folder.OnDrive ? AT_SYMLINK_NOFOLLOW : 0) != 0)
            continue;
        const Nature nature = NatureOf(what);
        if (nature == Nature::File || (folders && nature == Nature::Folder))
            names << name;
    }
    ::closedir(stream);
    return names;
}

void MakeFolder(const FilePlace &place)
{
    const QString path = place.Native();
    if (place.Parts.isEmpty())
        throw RunTimeError(FileAlreadyExists, path);
    const Descriptor parent = OpenFolder(place.Folder(), ForPassing);
    struct stat folder = {};
    if (!parent.IsOpen() || ::fstat(parent.Number(), &folder) != 0)
        Raise(errno, path, PathNotFound);
    const QByteArray name = Encoded(place.Name());
    if (!place.OnDrive) {
        if (::mkdirat(parent.Number(), name.constData(), 0777) != 0)
            Raise(errno, path, PathNotFound);
        return;
    }
    const mode_t rights = folder.st_mode & AllRights;
    int failed = 0;
    {
        const LiftedMask lifted;
        failed = ::mkdirat(parent.Number(), name.constData(), rights);
    }
    if (failed != 0)
        Raise(errno, path, PathNotFound);
    const Descriptor made(::openat(parent.Number(), name.constData(),
                                   O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    if (!made.IsOpen())
        Raise(errno, path, PathNotFound);
    TakeGroupAndRights(made.Number(), folder, rights, path);
}

struct OutputFile::State {
    FilePlace Place;
    QString Path;
    QByteArray Name;
    Descriptor Folder;
    Descriptor File;
    bool New = false;

    void Open()
    {
        // With O_NONBLOCK a pipe without a reader is refused instead of waited for.
        File = Descriptor(::openat(Folder.Number(), Name.constData(),
                                   O_WRONLY | O_NONBLOCK | O_CLOEXEC | NoFollow(Place)));
    }

    void Make()
    {
        struct stat folder = {};
        if (::fstat(Folder.Number(), &folder) != 0)
            Raise(errno, Path, PathNotFound);
        if (Place.OnDrive) {
            const LiftedMask lifted;
            Make(folder.st_mode & ReadWrite);
        } else {
            Make(ReadWrite);
        }
        if (!File.IsOpen()) {
            const int reason = errno;
            // Another process was faster, or a link stands there that leads nowhere.
            Open();
            if (!File.IsOpen())
                Raise(reason == EEXIST ? ELOOP : reason, Path, PathNotFound);
            return;
        }
        New = true;
        if (Place.OnDrive)
            TakeGroupAndRights(File.Number(), folder, folder.st_mode & ReadWrite, Path);
    }

    void Make(mode_t rights)
    {
        File = Descriptor(::openat(Folder.Number(), Name.constData(),
                                   O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, rights));
    }

    bool WriteAt(const char *bytes, int64_t size, int64_t at)
    {
        while (size > 0) {
            const ssize_t written =
                ::pwrite(File.Number(), bytes, static_cast<size_t>(size), static_cast<off_t>(at));
            if (written < 0 && errno == EINTR)
                continue;
            if (written < 0)
                return false;
            bytes += written;
            size -= written;
            at += written;
        }
        return true;
    }

    // True when all of it is on its way to the disk.
    bool Write(const QByteArray &content)
    {
        AwaitTurn(Place, File, LOCK_EX);
        struct stat what = {};
        if (::fstat(File.Number(), &what) != 0)
            return false;
        const int64_t oldSize = what.st_size;
        const int64_t size = content.size();
        const int64_t front = std::min(size, oldSize);
        if (!WriteAt(content.constData() + front, size - front, oldSize)) {
            const int reason = errno;
            if (::ftruncate(File.Number(), static_cast<off_t>(oldSize)) != 0)
                qWarning("%s", "a file could not be cut back");
            errno = reason;
            return false;
        }
        return WriteAt(content.constData(), front, 0) &&
               ::ftruncate(File.Number(), static_cast<off_t>(size)) == 0 && File.Close();
    }
};

OutputFile::OutputFile(const FilePlace &place) : m_state(std::make_unique<State>())
{
    State &state = *m_state;
    state.Place = place;
    state.Path = place.Native();
    if (place.Parts.isEmpty())
        throw RunTimeError(PathFileAccess, state.Path);
    state.Name = Encoded(place.Name());
    state.Folder = OpenFolder(place.Folder(), ForPassing);
    if (!state.Folder.IsOpen())
        Raise(errno, state.Path, PathNotFound);
    state.Open();
    if (!state.File.IsOpen() && errno == ENOENT)
        state.Make();
    if (!state.File.IsOpen())
        Raise(errno, state.Path, PathNotFound);
    struct stat what = {};
    if (::fstat(state.File.Number(), &what) != 0 || NatureOf(what) != Nature::File)
        throw RunTimeError(PathFileAccess, state.Path);
}

OutputFile::~OutputFile() = default;

void OutputFile::Replace(const QByteArray &content)
{
    State &state = *m_state;
    if (state.Write(content))
        return;
    const int reason = errno;
    if (state.New)
        ::unlinkat(state.Folder.Number(), state.Name.constData(), 0);
    Raise(reason, state.Path, PathNotFound);
}

} // namespace platform

#endif
