#include "support/language_file.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTest>

namespace {

const QByteArray Strings = "Strings";
const QByteArray Voices = "Voci";

QString Folder()
{
    return QStringLiteral(SOURCE_DIR "/data/lngmorlene/");
}

} // namespace

QByteArray LanguageFile::Text(const QByteArray &section, const QByteArray &key) const
{
    for (const LanguageEntry &entry : Entries)
        if (entry.Section == section && entry.Key == key)
            return entry.Value;
    return {};
}

QList<LanguageEntry> LanguageFile::EntriesOf(const QByteArray &section) const
{
    QList<LanguageEntry> entries;
    for (const LanguageEntry &entry : Entries)
        if (entry.Section == section)
            entries << entry;
    return entries;
}

QList<QByteArray> LanguageFile::Windows() const
{
    QList<QByteArray> windows = Sections;
    windows.removeAll(Strings);
    windows.removeAll(Voices);
    return windows;
}

QList<LanguageEntry> LanguageFile::EntriesOfWindows() const
{
    QList<LanguageEntry> entries;
    for (const QByteArray &window : Windows())
        entries << EntriesOf(window);
    return entries;
}

QStringList LanguageNames()
{
    return QDir(Folder()).entryList({QStringLiteral("*.lng")});
}

LanguageFile ReadLanguageFile(const QString &name)
{
    static const QRegularExpression heading(QStringLiteral("^\\[(\\w+)\\]$"));
    // A number; a control and its property; a window and its control.
    static const QRegularExpression pair(QStringLiteral(
        "^(\\d{4}|\\w+(?:\\(\\d+\\))?\\.[A-Za-z]\\w+(?:\\(\\d+\\))?)=\"([^\"]*)\"$"));
    LanguageFile language;
    QFile file(Folder() + name);
    if (file.open(QIODevice::ReadOnly))
        language.Content = file.readAll();
    QByteArray section;
    for (const QByteArray &line : QByteArray(language.Content).replace("\r\n", "\n").split('\n')) {
        if (line.isEmpty() || line.startsWith(';'))
            continue;
        const QString text = QString::fromLatin1(line);
        if (const auto found = heading.match(text); found.hasMatch()) {
            section = found.captured(1).toLatin1();
            language.Sections << section;
        } else if (const auto entry = pair.match(text); entry.hasMatch() && !section.isEmpty()) {
            language.Entries << LanguageEntry{section, entry.captured(1).toLatin1(),
                                              entry.captured(2).toLatin1()};
        } else {
            language.Strange << line;
        }
    }
    return language;
}

void RowsOfLanguages()
{
    QTest::addColumn<QString>("name");
    for (const QString &name : LanguageNames())
        QTest::newRow(qPrintable(name)) << name;
}
