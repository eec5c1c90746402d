#include "platform/ini.h"

#include "platform/errors.h"
#include "platform/file_rights.h"
#include "platform/files.h"

#include <QDateTime>
#include <QFileInfo>
#include <QHash>

namespace platform {

namespace {

constexpr qsizetype LongestValue = 511; // letters

bool IsBlank(char letter) { return letter == ' ' || letter == '\t'; }

QByteArray Trimmed(const QByteArray &text)
{
    qsizetype start = 0;
    qsizetype end = text.size();
    while (start < end && IsBlank(text.at(start)))
        ++start;
    while (end > start && IsBlank(text.at(end - 1)))
        --end;
    return text.mid(start, end - start);
}

// A line of an initialisation file, as far as it means something.
struct IniLine {
    enum class Kind { Other, Section, Key };
    Kind LineKind = Kind::Other;
    QString Name; // of the section or the key, in small letters
    QByteArray Value;
};

IniLine ReadLine(const QByteArray &raw)
{
    IniLine line;
    const QByteArray text = Trimmed(raw);
    if (text.startsWith(';'))
        return line;
    if (text.startsWith('[')) {
        const qsizetype end = text.indexOf(']');
        line.LineKind = IniLine::Kind::Section;
        line.Name = FromCodePage(Trimmed(text.mid(1, (end < 0 ? text.size() : end) - 1))).toLower();
        return line;
    }
    const qsizetype equals = text.indexOf('=');
    if (equals < 0)
        return line;
    line.LineKind = IniLine::Kind::Key;
    line.Name = FromCodePage(Trimmed(text.left(equals))).toLower();
    line.Value = Trimmed(text.mid(equals + 1));
    if (line.Value.size() >= 2 && line.Value.startsWith('"') && line.Value.endsWith('"'))
        line.Value = line.Value.mid(1, line.Value.size() - 2);
    return line;
}

QList<QByteArray> Lines(QByteArray content)
{
    if (content.startsWith("\xEF\xBB\xBF"))
        content.remove(0, 3);
    QList<QByteArray> lines = content.split('\n');
    for (QByteArray &line : lines)
        if (line.endsWith('\r'))
            line.chop(1);
    return lines;
}

using Values = QHash<QString, QString>; // "section\nkey" in small letters

Values Parse(const QByteArray &content)
{
    Values values;
    QString section;
    bool inSection = false;
    QStringList seen;
    for (const QByteArray &raw : Lines(content)) {
        const IniLine line = ReadLine(raw);
        if (line.LineKind == IniLine::Kind::Section) {
            section = line.Name;
            // Of sections of one name only the first counts.
            inSection = !seen.contains(section);
            seen << section;
        } else if (line.LineKind == IniLine::Kind::Key && inSection) {
            const QString key = section + QLatin1Char('\n') + line.Name;
            if (!values.contains(key))
                values.insert(key, FromCodePage(line.Value).left(LongestValue));
        }
    }
    return values;
}

struct Cached {
    qint64 Size = -1;
    QDateTime Time;
    Values Content;
};

} // namespace

QString ReadIni(const QString &path, const QString &section, const QString &key)
{
    static QHash<QString, Cached> files;
    const QString native = NativePath(path);
    const QFileInfo info(native);
    Cached &file = files[native];
    if (!info.isFile() || info.size() != file.Size || info.lastModified() != file.Time) {
        file = Cached();
        file.Content = Parse(ReadFile(path));
        file.Size = info.size();
        file.Time = info.lastModified();
    }
    return file.Content.value(section.toLower() + QLatin1Char('\n') + key.toLower());
}

bool WriteIni(const QString &path, const QString &section, const QString &key, const QString &value)
{
    QByteArray content;
    if (FileExists(path) && Skipping([&] { content = ReadFile(path); }) != 0)
        return false;
    const QByteArray assignment = ToCodePage(key) + '=' + ToCodePage(value);
    QList<QByteArray> lines = content.isEmpty() ? QList<QByteArray>() : Lines(content);
    while (!lines.isEmpty() && lines.last().isEmpty())
        lines.removeLast();
    qsizetype end = -1; // behind the last line of the section
    bool inSection = false;
    bool done = false;
    for (qsizetype i = 0; i < lines.size() && !done; ++i) {
        const IniLine line = ReadLine(lines.at(i));
        if (line.LineKind == IniLine::Kind::Section) {
            if (inSection)
                break;
            inSection = line.Name == section.toLower();
        }
        if (!inSection)
            continue;
        if (line.LineKind == IniLine::Kind::Key && line.Name == key.toLower()) {
            lines[i] = assignment;
            done = true;
        }
        if (!Trimmed(lines.at(i)).isEmpty())
            end = i + 1;
    }
    if (!done && end >= 0) {
        lines.insert(end, assignment);
    } else if (!done) {
        lines << '[' + ToCodePage(section) + ']' << assignment;
    }
    QString native;
    return Skipping([&] {
               native = NativePath(path);
               // An installed package puts a link here to a file on the drive.
               const QFileInfo info(native);
               WriteWhole(info.isSymLink() ? info.symLinkTarget() : native,
                          lines.join("\r\n") + "\r\n");
           }) == 0;
}

} // namespace platform
