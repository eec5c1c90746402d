// The windows that a language file names: each control is there, and Italian says what the design
// says, so that a window reads the same with and without its language file.
#include <algorithm>
#include <memory>

#include <QDir>
#include <QRegularExpression>
#include <QTest>

#include "support/exercise_fixture.h"
#include "support/registered_tests.h"
#include "support/windows.h"

namespace {

QString Folder()
{
    return QStringLiteral(SOURCE_DIR "/data/lngmorlene/");
}

struct Entry {
    QString Section;
    QString Control; // or the window's own name
    QString Property;
    QString Value;
};

QList<Entry> EntriesOfWindows(const QString &name)
{
    static const QRegularExpression heading(QStringLiteral("^\\[(\\w+)\\]$"));
    static const QRegularExpression pair(QStringLiteral("^([^.=]+)\\.([\\w()]+)=\"([^\"]*)\"$"));
    QFile file(Folder() + name);
    QList<Entry> entries;
    if (!file.open(QIODevice::ReadOnly))
        return entries;
    QString section;
    // Letters of the windows' texts are the same in Latin-1 and in the code page.
    for (const QString &line : QString::fromLatin1(file.readAll()).split(QStringLiteral("\r\n"))) {
        if (const auto found = heading.match(line); found.hasMatch())
            section = found.captured(1);
        else if (const auto entry = pair.match(line);
                 entry.hasMatch() && section != QStringLiteral("Strings"))
            entries << Entry{section, entry.captured(1), entry.captured(2), entry.captured(3)};
    }
    return entries;
}

const platform::Control *Find(const platform::Form &window, const QString &key)
{
    for (const platform::Control *control : window.Controls())
        if (control->Key() == key)
            return control;
    return nullptr;
}

} // namespace

class TestLanguageWindows : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyControlThatALanguageNamesExists_data();
    void everyControlThatALanguageNamesExists();
    void italianSaysWhatTheDesignSays();
    void everyCaptionOfAWindowHasAKey();
};

void TestLanguageWindows::everyControlThatALanguageNamesExists_data()
{
    QTest::addColumn<QString>("name");
    for (const QString &name : QDir(Folder()).entryList({QStringLiteral("*.lng")}))
        QTest::newRow(qPrintable(name)) << name;
}

void TestLanguageWindows::everyControlThatALanguageNamesExists()
{
    QFETCH(QString, name);
    const Player player;
    const QList<Entry> entries = EntriesOfWindows(name);
    QVERIFY(!entries.isEmpty());
    for (const Entry &entry : entries) {
        const auto window = MakeWindow(entry.Section);
        QVERIFY2(window, qPrintable(entry.Section));
        QVERIFY2(entry.Control == entry.Section || Find(*window, entry.Control),
                 qPrintable(entry.Section + QStringLiteral(": ") + entry.Control));
    }
}

void TestLanguageWindows::italianSaysWhatTheDesignSays()
{
    const Player player;
    for (const Entry &entry : EntriesOfWindows(QStringLiteral("italiano.lng"))) {
        QCOMPARE(entry.Property, QStringLiteral("Caption"));
        const auto window = MakeWindow(entry.Section);
        const QString design = entry.Control == entry.Section
                                   ? window->Caption()
                                   : Find(*window, entry.Control)->Caption();
        QCOMPARE(entry.Value, design);
    }
}

void TestLanguageWindows::everyCaptionOfAWindowHasAKey()
{
    const Player player;
    const QList<Entry> entries = EntriesOfWindows(QStringLiteral("italiano.lng"));
    QStringList sections;
    for (const Entry &entry : entries)
        if (!sections.contains(entry.Section))
            sections << entry.Section;
    for (const QString &section : sections) {
        const auto window = MakeWindow(section);
        QVERIFY2(window, qPrintable(section));
        for (const platform::Control *control : window->Controls()) {
            QString caption;
            platform::Skipping([&] { caption = control->Caption(); });
            if (caption.isEmpty())
                continue;
            const bool named = std::any_of(entries.begin(), entries.end(), [&](const Entry &entry) {
                return entry.Section == section && entry.Control == control->Key();
            });
            QVERIFY2(named, qPrintable(section + QStringLiteral(": ") + control->Key()));
        }
    }
}

MORLENE_TEST(TestLanguageWindows)
#include "test_language_windows.moc"
