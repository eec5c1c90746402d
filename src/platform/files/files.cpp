// Look-ups, folders and whole files by the paths of the program.
#include "platform/files/files.h"

#include "platform/base/errors.h"
#include "platform/files/file_access.h"

#include <algorithm>

namespace platform {

namespace {

// A path that leads nowhere, for whatever reason, has nothing.
Nature NatureAt(const QString &path)
{
    Nature nature = Nature::Missing;
    if (!path.isEmpty())
        Skipping([&] { nature = NatureOf(Locate(path)); });
    return nature;
}

} // namespace

QStringList DirList(const QString &pattern, LookUp kind)
{
    const FilePlace place = LocatePattern(pattern);
    if (place.Parts.isEmpty())
        return {};
    QStringList names = NamesIn(place.Folder(), kind == LookUp::FilesAndFolders);
    names.removeIf([&place](const QString &name) { return !Fits(name, place.Name()); });
    std::sort(names.begin(), names.end(), ComesBefore);
    return names;
}

bool FileExists(const QString &path)
{
    return NatureAt(path) == Nature::File;
}

bool FolderExists(const QString &path)
{
    return NatureAt(path) == Nature::Folder;
}

int64_t FileLength(const QString &path)
{
    return StampOf(Locate(path)).Size;
}

void CreateFolder(const QString &path)
{
    MakeFolder(Locate(path));
}

void CopyFile(const QString &from, const QString &to)
{
    const QByteArray content = ReadFile(from);
    OutputFile(Locate(to)).Replace(content);
}

QByteArray ReadFile(const QString &path)
{
    return ReadAll(Locate(path));
}

} // namespace platform
