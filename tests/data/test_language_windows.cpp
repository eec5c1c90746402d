// The windows that a language file names: each control is there, and Italian says what the design
// says, so that a window reads and sounds the same with and without its language file.
#include "platform/files.h"
#include "support/exercise_fixture.h"
#include "support/language_file.h"
#include "support/registered_tests.h"
#include "support/windows.h"

#include <QTest>

#include <algorithm>
#include <memory>

namespace {

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
    void everyControlThatALanguageNamesExists_data() { RowsOfLanguages(); }
    void everyControlThatALanguageNamesExists()
    {
        QFETCH(QString, name);
        const Player player;
        const QList<LanguageEntry> entries = ReadLanguageFile(name).EntriesOfWindows();
        QVERIFY(!entries.isEmpty());
        for (const LanguageEntry &entry : entries) {
            const QString section = QString::fromLatin1(entry.Section);
            const auto window = MakeWindow(section);
            QVERIFY2(window, entry.Section.constData());
            QVERIFY2(entry.Control() == section || Find(*window, entry.Control()),
                     entry.Name().constData());
        }
    }

    void italianSaysWhatTheDesignSays()
    {
        const Player player;
        const LanguageFile italian = ReadLanguageFile(QStringLiteral("italiano.lng"));
        for (const LanguageEntry &entry : italian.EntriesOfWindows()) {
            QCOMPARE(entry.Property(), QStringLiteral("Caption"));
            const QString section = QString::fromLatin1(entry.Section);
            const auto window = MakeWindow(section);
            const QString design = entry.Control() == section
                                       ? window->Caption()
                                       : Find(*window, entry.Control())->Caption();
            QCOMPARE(platform::FromCodePage(entry.Value), design);
        }
    }

    void everyCaptionOfAWindowHasAKey()
    {
        const Player player;
        const LanguageFile italian = ReadLanguageFile(QStringLiteral("italiano.lng"));
        for (const QByteArray &section : italian.Windows()) {
            const QList<LanguageEntry> entries = italian.EntriesOf(section);
            const auto window = MakeWindow(QString::fromLatin1(section));
            QVERIFY2(window, section.constData());
            for (const platform::Control *control : window->Controls()) {
                QString caption;
                platform::Skipping([&] { caption = control->Caption(); });
                if (caption.isEmpty())
                    continue;
                const bool named =
                    std::any_of(entries.begin(), entries.end(), [&](const LanguageEntry &entry) {
                        return entry.Control() == control->Key();
                    });
                QVERIFY2(named, qPrintable(QString::fromLatin1(section) + QStringLiteral(": ") +
                                           control->Key()));
            }
        }
    }

    // The two exercises whose titles are set together from pieces are called the same on their item
    // and in the log.
    void aTitleInPiecesIsThatOfItsItemAndOfTheLog_data() { RowsOfLanguages(); }
    void aTitleInPiecesIsThatOfItsItemAndOfTheLog()
    {
        QFETCH(QString, name);
        const LanguageFile language = ReadLanguageFile(name);
        const auto text = [&](const char *key) { return language.Text("Strings", key); };
        const auto item = [&](int i) {
            return language.Text("FormMenu", "Command1(" + QByteArray::number(i) + ").Caption");
        };
        QCOMPARE(text("0059") + ' ' + text("0060") + " 1\xB0", item(2));
        QCOMPARE(text("0061") + ' ' + text("0062") + " 2\xB0", item(3));
        QCOMPARE(text("0063") + ' ' + text("0064"), item(6));
        for (int i = 0; i < 8; ++i)
            QCOMPARE(text(("00" + QByteArray::number(65 + i)).constData()), item(i));
    }
};

MORLENE_TEST(TestLanguageWindows)
#include "test_language_windows.moc"
