// Files and folders on Windows, where rights are inherited: the toolkit's own calls are enough.
#include "platform/files/file_access.h"

#include <QtGlobal>

#ifdef Q_OS_WIN

#include "platform/base/errors.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace platform {

namespace {

constexpr int64_t NanosecondsInMillisecond = 1'000'000;
constexpr int64_t SettleTime = 50;                    // milliseconds
constexpr int64_t LongestContent = 256 * 1024 * 1024; // bytes

Nature NatureOf(const QFileInfo &info, bool onDrive)
{
    if (onDrive && info.isSymLink())
        return Nature::Other;
    if (!info.exists())
        return Nature::Missing;
    if (info.isFile())
        return Nature::File;
    return info.isDir() ? Nature::Folder : Nature::Other;
}

} // namespace

Nature NatureOf(const FilePlace &place)
{
    return NatureOf(QFileInfo(place.Native()), place.OnDrive);
}

Stamp StampOf(const FilePlace &place)
{
    const QFileInfo info(place.Native());
    const Nature nature = NatureOf(info, place.OnDrive);
    if (nature != Nature::File)
        throw RunTimeError(nature == Nature::Missing ? FileNotFound : PathFileAccess,
                           place.Native());
    const int64_t modified = info.lastModified().toMSecsSinceEpoch();
    Stamp stamp;
    stamp.Size = info.size();
    stamp.Modified = modified * NanosecondsInMillisecond;
    stamp.Changed = stamp.Modified;
    stamp.Settled = modified < QDateTime::currentMSecsSinceEpoch() - SettleTime;
    return stamp;
}

QByteArray ReadAll(const FilePlace &place)
{
    if (StampOf(place).Size > LongestContent)
        throw RunTimeError(PathFileAccess, place.Native());
    QFile file(place.Native());
    if (!file.open(QIODevice::ReadOnly))
        throw RunTimeError(PermissionDenied, place.Native());
    return file.readAll();
}

QStringList NamesIn(const FilePlace &folder, bool folders)
{
    const Nature nature = NatureOf(folder);
    if (nature == Nature::Other)
        throw RunTimeError(PathFileAccess, folder.Native());
    QStringList names;
    if (nature != Nature::Folder)
        return names;
    const auto entries =
        QDir(folder.Native())
            .entryInfoList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    for (const QFileInfo &entry : entries) {
        const Nature what = NatureOf(entry, folder.OnDrive);
        if (what == Nature::File || (folders && what == Nature::Folder))
            names << entry.fileName();
    }
    return names;
}

void MakeFolder(const FilePlace &place)
{
    const QString path = place.Native();
    if (NatureOf(place) != Nature::Missing)
        throw RunTimeError(FileAlreadyExists, path);
    if (NatureOf(place.Folder()) != Nature::Folder)
        throw RunTimeError(PathNotFound, path);
    if (!QDir().mkdir(path))
        throw RunTimeError(PermissionDenied, path);
}

struct OutputFile::State {
    QFile File;
    bool New = false;
};

OutputFile::OutputFile(const FilePlace &place) : m_state(std::make_unique<State>())
{
    const QString path = place.Native();
    const Nature nature = NatureOf(place);
    if (nature == Nature::Folder || nature == Nature::Other)
        throw RunTimeError(PathFileAccess, path);
    if (NatureOf(place.Folder()) != Nature::Folder)
        throw RunTimeError(PathNotFound, path);
    m_state->New = nature == Nature::Missing;
    m_state->File.setFileName(path);
    if (!m_state->File.open(QIODevice::ReadWrite | QIODevice::Unbuffered))
        throw RunTimeError(PermissionDenied, path);
}

OutputFile::~OutputFile() = default;

void OutputFile::Replace(const QByteArray &content)
{
    QFile &file = m_state->File;
    const int64_t oldSize = file.size();
    // The room is taken first, so that a full disk is met while the old content still stands.
    const bool room = content.size() <= oldSize || file.resize(content.size());
    if (room && file.seek(0) && file.write(content) == content.size() &&
        file.resize(content.size())) {
        file.close();
        return;
    }
    if (!room)
        file.resize(oldSize);
    const QString path = file.fileName();
    if (m_state->New)
        file.remove();
    throw RunTimeError(DiskFull, path);
}

} // namespace platform

#endif
