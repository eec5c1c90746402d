// Where literal paths lead, and what is there.
#include "platform/files.h"

#include "platform/errors.h"
#include "platform/file_rights.h"
#include "platform/host.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>

namespace platform {

namespace {

constexpr qsizetype LongestName = 255; // bytes

enum class Kind { Drive, Application, Native };

struct Parsed {
    Kind PathKind = Kind::Native;
    QString Root; // ends in a slash
    QStringList Parts;
};

bool Refused(const QString &name, bool pattern)
{
    if (name == QStringLiteral(".") || name == QStringLiteral("..") || name.endsWith(QLatin1Char('.')))
        return true;
    if (name.toUtf8().size() > LongestName)
        return true;
    return std::any_of(name.begin(), name.end(), [pattern](QChar letter) {
        if (letter.unicode() < 0x20)
            return true;
        if (pattern && (letter == QLatin1Char('*') || letter == QLatin1Char('?')))
            return false;
        return QStringLiteral("/:*?\"<>|").contains(letter);
    });
}

Parsed Parse(const QString &path, bool pattern)
{
    Parsed result;
    QString tail;
    if (path.startsWith(QStringLiteral("C:\\"), Qt::CaseInsensitive)) {
        result.PathKind = Kind::Drive;
        result.Root = host().DriveRoot();
        tail = path.mid(3);
    } else if (path.startsWith(AppPath() + QLatin1Char('\\'))) {
        result.PathKind = Kind::Application;
        result.Root = host().ApplicationFolder();
        tail = path.mid(AppPath().size() + 1);
    } else {
        return result;
    }
    // Doubled separators are harmless.
    result.Parts = tail.split(QLatin1Char('\\'), Qt::SkipEmptyParts);
    for (const QString &part : result.Parts)
        if (Refused(part, pattern && part == result.Parts.last()))
            throw RunTimeError(BadFileNameOrNumber, path);
    return result;
}

bool IsLink(const QString &native) { return QFileInfo(native).isSymLink(); }

// The spelling of a name as it is on disk: the exact one, else the first in order.
QString Spelled(const QString &folder, const QString &name)
{
    const QFileInfo exact(folder + name);
    if (exact.exists() || exact.isSymLink())
        return name;
    QStringList same;
    const QStringList there =
        QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    for (const QString &entry : there)
        if (entry.compare(name, Qt::CaseInsensitive) == 0)
            same << entry;
    if (same.isEmpty())
        return name;
    return *std::min_element(same.begin(), same.end());
}

// The native path of the first `count` parts. A link on the way below the drive is refused.
QString Native(const Parsed &path, qsizetype count)
{
    QString native = path.Root;
    for (qsizetype i = 0; i < count; ++i) {
        if (i > 0) {
            if (path.PathKind == Kind::Drive && IsLink(native))
                throw RunTimeError(PathFileAccess, native);
            native += QLatin1Char('/');
        }
        native += Spelled(native, path.Parts.at(i));
    }
    return native;
}

// "*" stands for any letters, "?" for one.
QRegularExpression Matcher(const QString &pattern)
{
    QString expression = QRegularExpression::escape(pattern);
    expression.replace(QStringLiteral("\\*"), QStringLiteral(".*"));
    expression.replace(QStringLiteral("\\?"), QStringLiteral("."));
    return QRegularExpression(QRegularExpression::anchoredPattern(expression),
                              QRegularExpression::CaseInsensitiveOption |
                                  QRegularExpression::DotMatchesEverythingOption);
}

} // namespace

QString AppPath()
{
    QString folder = host().ApplicationFolder();
    while (folder.size() > 1 && folder.endsWith(QLatin1Char('/')))
        folder.chop(1);
    return folder;
}

QString NativePath(const QString &path)
{
    const Parsed parsed = Parse(path, false);
    return parsed.PathKind == Kind::Native ? path : Native(parsed, parsed.Parts.size());
}

QStringList DirList(const QString &pattern, LookUp kind)
{
    const Parsed parsed = Parse(pattern, true);
    QString folder;
    QString name;
    if (parsed.PathKind == Kind::Native) {
        const qsizetype slash = pattern.lastIndexOf(QLatin1Char('/'));
        folder = pattern.left(slash);
        name = pattern.mid(slash + 1);
    } else {
        if (parsed.Parts.isEmpty())
            return {};
        folder = Native(parsed, parsed.Parts.size() - 1);
        name = parsed.Parts.last();
    }
    const QFileInfo there(folder);
    if (!there.isDir())
        return {};
    if (!there.isReadable())
        throw RunTimeError(PermissionDenied, folder);
    const QRegularExpression wanted = Matcher(name);
    QStringList names;
    const auto entries = QDir(folder).entryInfoList(
        QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    for (const QFileInfo &entry : entries) {
        const bool plain = entry.isFile() || (kind == LookUp::FilesAndFolders && entry.isDir());
        if (plain && !entry.isSymLink() && wanted.match(entry.fileName()).hasMatch())
            names << entry.fileName();
    }
    std::sort(names.begin(), names.end(), [](const QString &left, const QString &right) {
        const int order = left.compare(right, Qt::CaseInsensitive);
        return order != 0 ? order < 0 : left < right;
    });
    return names;
}

bool FileExists(const QString &path)
{
    bool exists = false;
    Skipping([&] {
        const QFileInfo file(NativePath(path));
        const bool link = file.isSymLink() && path.startsWith(QStringLiteral("C:\\"), Qt::CaseInsensitive);
        exists = file.isFile() && !link;
    });
    return exists;
}

bool FolderExists(const QString &path)
{
    bool exists = false;
    Skipping([&] { exists = !path.isEmpty() && QFileInfo(NativePath(path)).isDir(); });
    return exists;
}

int64_t FileLength(const QString &path)
{
    const QFileInfo file(NativePath(path));
    if (!file.isFile())
        throw RunTimeError(FileNotFound, path);
    return file.size();
}

FileState StateOfFile(const QString &path)
{
    const QFileInfo file(NativePath(path));
    if (!file.isFile())
        throw RunTimeError(FileNotFound, path);
    return {file.size(), file.lastModified().toMSecsSinceEpoch()};
}

void CreateFolder(const QString &path)
{
    MakeFolderLikeParent(NativePath(path));
}

void CopyFile(const QString &from, const QString &to)
{
    WriteWhole(NativePath(to), ReadFile(from));
}

QByteArray ReadFile(const QString &path)
{
    const QString native = NativePath(path);
    const QFileInfo info(native);
    const bool drive = path.startsWith(QStringLiteral("C:\\"), Qt::CaseInsensitive);
    if (!info.exists() && !info.isSymLink())
        throw RunTimeError(FileNotFound, path);
    if ((drive && info.isSymLink()) || !info.isFile())
        throw RunTimeError(PathFileAccess, path);
    QFile file(native);
    if (!file.open(QIODevice::ReadOnly))
        throw RunTimeError(PermissionDenied, path);
    return file.readAll();
}

} // namespace platform
