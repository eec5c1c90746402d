// Initialisation files, read and changed line by line. A file is kept byte for byte but for the one
// line that a change is for.
#include "platform/files/ini.h"

#include "platform/base/errors.h"
#include "platform/files/file_access.h"
#include "platform/files/files.h"

#include <QHash>
#include <QList>
#include <QSet>

namespace platform {

namespace {

constexpr qsizetype LongestValue = 511; // letters
constexpr char ByteOrderMark[] = "\xEF\xBB\xBF";

bool IsBlank(char letter)
{
    return letter == ' ' || letter == '\t';
}

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

QString Folded(const QByteArray &name)
{
    return FromCodePage(Trimmed(name)).toLower();
}
QString Folded(const QString &name)
{
    return Folded(ToCodePage(name));
}

struct RawLine {
    QByteArray Text;
    QByteArray End; // CR LF, LF, CR, or nothing behind the last line
};

QList<RawLine> Split(const QByteArray &content)
{
    QList<RawLine> lines;
    qsizetype start = 0;
    for (qsizetype at = 0; at < content.size(); ++at) {
        const char letter = content.at(at);
        if (letter != '\r' && letter != '\n')
            continue;
        const bool pair = letter == '\r' && at + 1 < content.size() && content.at(at + 1) == '\n';
        lines.append({content.mid(start, at - start), content.mid(at, pair ? 2 : 1)});
        at += pair ? 1 : 0;
        start = at + 1;
    }
    if (start < content.size())
        lines.append({content.mid(start), {}});
    return lines;
}

// A line as far as it means something.
struct IniLine {
    enum class Kind { Other, Section, Key };
    Kind LineKind = Kind::Other;
    QString Name; // of the section or the key, in small letters
    QByteArray Value;
};

IniLine Understand(const QByteArray &raw)
{
    IniLine line;
    const QByteArray text = Trimmed(raw);
    if (text.startsWith(';'))
        return line;
    if (text.startsWith('[')) {
        const qsizetype end = text.indexOf(']');
        line.LineKind = IniLine::Kind::Section;
        line.Name = Folded(text.mid(1, (end < 0 ? text.size() : end) - 1));
        return line;
    }
    const qsizetype equals = text.indexOf('=');
    if (equals < 0)
        return line;
    line.LineKind = IniLine::Kind::Key;
    line.Name = Folded(text.left(equals));
    line.Value = Trimmed(text.mid(equals + 1));
    if (line.Value.size() >= 2 && line.Value.startsWith('"') && line.Value.endsWith('"'))
        line.Value = line.Value.mid(1, line.Value.size() - 2);
    return line;
}

QByteArray WithoutMark(const QByteArray &content)
{
    return content.startsWith(ByteOrderMark) ? content.mid(sizeof ByteOrderMark - 1) : content;
}

using Values = QHash<QString, QString>;

QString ValueName(const QString &section, const QString &key)
{
    return section + QLatin1Char('\n') + key;
}

Values Parse(const QByteArray &content)
{
    Values values;
    QSet<QString> seen;
    QString section;
    bool inSection = false;
    for (const RawLine &raw : Split(WithoutMark(content))) {
        const IniLine line = Understand(raw.Text);
        if (line.LineKind == IniLine::Kind::Section) {
            section = line.Name;
            // Of sections of one name only the first counts.
            inSection = !seen.contains(section);
            seen.insert(section);
        } else if (line.LineKind == IniLine::Kind::Key && inSection) {
            const QString name = ValueName(section, line.Name);
            const qsizetype nul = line.Value.indexOf('\0');
            if (!values.contains(name))
                values.insert(
                    name,
                    FromCodePage(nul < 0 ? line.Value : line.Value.left(nul)).left(LongestValue));
        }
    }
    return values;
}

struct Kept {
    Stamp FileStamp;
    std::shared_ptr<const IniFile> File;
};

QHash<QString, Kept> &KeptFiles()
{
    static QHash<QString, Kept> files;
    return files;
}

// Puts the assignment over the key's line, else behind the last line of the section that holds
// something, else into a new section at the end.
QByteArray Changed(const QByteArray &content, const QString &section, const QByteArray &key,
                   const QByteArray &assignment)
{
    const QByteArray mark = content.left(content.size() - WithoutMark(content).size());
    QList<RawLine> lines = Split(WithoutMark(content));
    const QByteArray end =
        lines.isEmpty() || lines.first().End.isEmpty() ? QByteArray("\r\n") : lines.first().End;
    qsizetype behind = -1;
    qsizetype found = -1;
    bool inSection = false;
    for (qsizetype i = 0; i < lines.size() && found < 0; ++i) {
        const IniLine line = Understand(lines.at(i).Text);
        if (line.LineKind == IniLine::Kind::Section) {
            if (inSection)
                break;
            inSection = line.Name == Folded(section);
        }
        if (!inSection)
            continue;
        if (line.LineKind == IniLine::Kind::Key && line.Name == Folded(key))
            found = i;
        if (!Trimmed(lines.at(i).Text).isEmpty())
            behind = i + 1;
    }
    if (found >= 0) {
        lines[found].Text = assignment;
    } else {
        // The last line of the file may have no end yet.
        if (!lines.isEmpty() && lines.last().End.isEmpty())
            lines.last().End = end;
        if (behind < 0) {
            lines.append({'[' + ToCodePage(section) + ']', end});
            behind = lines.size();
        }
        lines.insert(behind, {assignment, end});
    }
    QByteArray result = mark;
    for (const RawLine &line : lines)
        result += line.Text + line.End;
    return result;
}

// As it has to stand so that a look-up gives all of it back.
QByteArray Written(const QString &value)
{
    const QByteArray bytes = ToCodePage(value);
    const bool quotes = bytes.size() >= 2 && bytes.startsWith('"') && bytes.endsWith('"');
    return quotes || Trimmed(bytes) != bytes ? '"' + bytes + '"' : bytes;
}

bool BreaksLines(const QByteArray &text)
{
    return text.contains('\r') || text.contains('\n') || text.contains('\0');
}

} // namespace

QString IniFile::Value(const QString &section, const QString &key) const
{
    if (!m_values)
        m_values = Parse(m_content);
    return m_values->value(ValueName(Folded(section), Folded(key)));
}

std::shared_ptr<const IniFile> OpenIni(const QString &path)
{
    const FilePlace place = Locate(path);
    // Taken before the content, so that a change in between shows at the next look-up.
    const Stamp stamp = StampOf(place);
    Kept &file = KeptFiles()[place.Native()];
    if (!file.FileStamp.Settled || !file.FileStamp.SameAs(stamp)) {
        file = Kept();
        file.File = std::make_shared<IniFile>(ReadAll(place));
        file.FileStamp = stamp;
    }
    return file.File;
}

QString ReadIni(const QString &path, const QString &section, const QString &key)
{
    return OpenIni(path)->Value(section, key);
}

bool WriteIni(const QString &path, const QString &section, const QString &key, const QString &value)
{
    const QByteArray assignment = ToCodePage(key) + '=' + Written(value);
    if (BreaksLines(ToCodePage(section)) || BreaksLines(assignment))
        return false;
    return Skipping([&] {
               const FilePlace place = Locate(path);
               QByteArray content;
               if (NatureOf(place) != Nature::Missing)
                   content = ReadAll(place);
               OutputFile(place).Replace(Changed(content, section, ToCodePage(key), assignment));
               KeptFiles().remove(place.Native());
           }) == 0;
}

} // namespace platform
