// Literal paths: taking them apart, refusing names, and finding the spelling on disk.
#include "platform/files/place.h"

#include "platform/base/errors.h"
#include "platform/host/host.h"

#include <QDir>
#include <QFileInfo>

#include <optional>

namespace platform {

namespace {

constexpr qsizetype LongestName = 255; // bytes

bool IsRefusedLetter(const QString &name, qsizetype i)
{
    const QChar letter = name.at(i);
    if (letter.category() == QChar::Other_Control)
        return true;
    // Half a letter has no bytes of its own, so two different names would become one.
    if (letter.isHighSurrogate())
        return i + 1 == name.size() || !name.at(i + 1).isLowSurrogate();
    if (letter.isLowSurrogate())
        return i == 0 || !name.at(i - 1).isHighSurrogate();
    return QStringLiteral("/\\:*?\"<>|").contains(letter);
}

#ifdef Q_OS_WIN
// A device answers to these names in every folder, whatever suffix they have, and a blank at the
// end of a name is dropped, so that two names would become one.
bool IsOfTheSystem(const QString &name)
{
    if (name.endsWith(QLatin1Char(' ')))
        return true;
    const QString stem = name.section(QLatin1Char('.'), 0, 0).trimmed().toUpper();
    const QStringList devices = {QStringLiteral("CON"), QStringLiteral("PRN"),
                                 QStringLiteral("AUX"), QStringLiteral("NUL")};
    const bool port = stem.size() == 4 && (stem.startsWith(QStringLiteral("COM")) ||
                                           stem.startsWith(QStringLiteral("LPT")));
    return devices.contains(stem) || (port && stem.at(3).isDigit());
}
#else
bool IsOfTheSystem(const QString &)
{
    return false;
}
#endif

// A trailing dot covers "." and "..", so no name leads up.
bool IsRefused(const QString &name)
{
    if (IsOfTheSystem(name))
        return true;
    if (name.endsWith(QLatin1Char('.')) || name.toUtf8().size() > LongestName)
        return true;
    for (qsizetype i = 0; i < name.size(); ++i)
        if (IsRefusedLetter(name, i))
            return true;
    return false;
}

bool IsRefusedPattern(QString pattern)
{
    const QLatin1Char some('x');
    return IsRefused(pattern.replace(QLatin1Char('*'), some).replace(QLatin1Char('?'), some));
}

bool IsLink(const QString &native)
{
    return QFileInfo(native).isSymLink();
}

// The spelling of a name as it is on disk: the exact one, else the first in order.
QString Spelled(const QString &folder, const QString &name)
{
    const QFileInfo exact(folder + name);
    if (exact.exists() || exact.isSymLink())
        return name;
    QString found;
    const QStringList there = QDir(folder).entryList(
        QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Unsorted);
    for (const QString &entry : there)
        if (entry.compare(name, Qt::CaseInsensitive) == 0 &&
            (found.isEmpty() || ComesBefore(entry, found)))
            found = entry;
    return found.isEmpty() ? name : found;
}

// Spells the parts but the last `unspelled`, and refuses links to go through on the drive.
void Spell(FilePlace &place, qsizetype unspelled)
{
    QString folder = place.Root;
    for (qsizetype i = 0; i < place.Parts.size(); ++i) {
        QString &part = place.Parts[i];
        if (i < place.Parts.size() - unspelled)
            part = Spelled(folder, part);
        folder += part;
        if (place.OnDrive && i + 1 < place.Parts.size() && IsLink(folder))
            throw RunTimeError(PathFileAccess, folder);
        folder += QLatin1Char('/');
    }
}

// A literal with backslashes; nothing for a native path.
std::optional<FilePlace> Parse(const QString &path, bool pattern)
{
    FilePlace place;
    QString tail;
    if (path.startsWith(QStringLiteral("C:\\"), Qt::CaseInsensitive)) {
        place.OnDrive = true;
        place.Root = host().DriveRoot();
        tail = path.mid(3);
    } else if (path.startsWith(AppPath() + QLatin1Char('\\'))) {
        place.Root = host().ApplicationFolder();
        tail = path.mid(AppPath().size() + 1);
    } else {
        return {};
    }
    // Doubled separators are harmless.
    place.Parts = tail.split(QLatin1Char('\\'), Qt::SkipEmptyParts);
    if (pattern && (tail.isEmpty() || tail.endsWith(QLatin1Char('\\'))))
        place.Parts << QStringLiteral("*");
    for (qsizetype i = 0; i < place.Parts.size(); ++i) {
        const bool last = i + 1 == place.Parts.size();
        const QString &part = place.Parts.at(i);
        if (pattern && last ? IsRefusedPattern(part) : IsRefused(part))
            throw RunTimeError(BadFileNameOrNumber, path);
    }
    Spell(place, pattern ? 1 : 0);
    return place;
}

// A native path keeps its spelling; below the drive its names and links are judged all the same.
FilePlace FromNative(const QString &path, qsizetype patterns)
{
    const QString clean = QDir::cleanPath(path);
    QString drive = QDir::cleanPath(host().DriveRoot());
    // The root of a whole disk keeps its slash.
    if (!drive.endsWith(QLatin1Char('/')))
        drive += QLatin1Char('/');
    FilePlace place;
    if (clean.startsWith(drive)) {
        place.Root = host().DriveRoot();
        place.OnDrive = true;
        place.Parts = clean.mid(drive.size()).split(QLatin1Char('/'), Qt::SkipEmptyParts);
        for (qsizetype i = 0; i < place.Parts.size() - patterns; ++i)
            if (IsRefused(place.Parts.at(i)))
                throw RunTimeError(BadFileNameOrNumber, path);
        Spell(place, place.Parts.size());
        return place;
    }
    const qsizetype slash = path.lastIndexOf(QLatin1Char('/'));
    place.Root = slash < 0 ? QStringLiteral("./") : path.left(slash + 1);
    if (slash + 1 < path.size())
        place.Parts << path.mid(slash + 1);
    return place;
}

} // namespace

QString FilePlace::Native() const
{
    return Root + Parts.join(QLatin1Char('/'));
}

FilePlace FilePlace::Folder() const
{
    FilePlace folder = *this;
    if (!folder.Parts.isEmpty())
        folder.Parts.removeLast();
    return folder;
}

FilePlace Locate(const QString &path)
{
    const std::optional<FilePlace> literal = Parse(path, false);
    if (!literal)
        return FromNative(path, 0);
    if (!literal->OnDrive) {
        const QFileInfo there(literal->Native());
        if (there.isSymLink()) {
            FilePlace target = FromNative(there.symLinkTarget(), 0);
            if (target.OnDrive)
                return target;
        }
    }
    return *literal;
}

FilePlace LocatePattern(const QString &path)
{
    const std::optional<FilePlace> literal = Parse(path, true);
    if (literal)
        return *literal;
    FilePlace place = FromNative(path, 1);
    if (path.endsWith(QLatin1Char('/')))
        place.Parts << QStringLiteral("*");
    return place;
}

bool ComesBefore(const QString &left, const QString &right)
{
    const int order = left.compare(right, Qt::CaseInsensitive);
    return order != 0 ? order < 0 : left < right;
}

bool Fits(const QString &name, const QString &pattern)
{
    if (pattern == QStringLiteral("*.*"))
        return true;
    const QString wanted = pattern.toLower();
    const QString text = name.toLower();
    qsizetype at = 0;
    qsizetype in = 0;
    // Where to go on when the letters behind the last "*" do not fit: one letter further.
    qsizetype star = -1;
    qsizetype resume = 0;
    while (at < text.size()) {
        if (in < wanted.size() && wanted.at(in) == QLatin1Char('*')) {
            star = in++;
            resume = at;
        } else if (in < wanted.size() &&
                   (wanted.at(in) == QLatin1Char('?') || wanted.at(in) == text.at(at))) {
            ++in;
            ++at;
        } else if (star >= 0) {
            in = star + 1;
            at = ++resume;
        } else {
            return false;
        }
    }
    while (in < wanted.size() && wanted.at(in) == QLatin1Char('*'))
        ++in;
    return in == wanted.size();
}

QString AppPath()
{
    QString folder = host().ApplicationFolder();
    while (folder.size() > 1 && folder.endsWith(QLatin1Char('/')))
        folder.chop(1);
    return folder;
}

QString NativePath(const QString &path)
{
    const std::optional<FilePlace> literal = Parse(path, false);
    return literal ? literal->Native() : path;
}

} // namespace platform
