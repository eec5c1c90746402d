// The windows that a language file names: each control is there, and Italian says what the design
// says, so that a window reads and sounds the same with and without its language file.
#include "platform/files/files.h"
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

// "FormEs1.Command1(2)": the window and the control that a spoken name is for.
QString WindowOf(const LanguageEntry &voice)
{
    return QString::fromLatin1(voice.Key).section(QLatin1Char('.'), 0, 0);
}
QString ControlOf(const LanguageEntry &voice)
{
    return QString::fromLatin1(voice.Key).section(QLatin1Char('.'), 1);
}

// The key that names it: its own, or that of its array; none without one.
const LanguageEntry *VoiceOf(const platform::Control &control, const QList<LanguageEntry> &voices)
{
    for (const QString &name : {control.Key(), control.Name()})
        for (const LanguageEntry &voice : voices)
            if (WindowOf(voice) == control.Parent().Name() && ControlOf(voice) == name)
                return &voice;
    return nullptr;
}

// What the program then says.
QString Spoken(const LanguageEntry &voice, const platform::Control &control)
{
    const QString name = platform::FromCodePage(voice.Value);
    return ControlOf(voice) == control.Key()
               ? name
               : name + QStringLiteral(" %1").arg(control.Index() + 1);
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

    void everySpokenNameIsThatOfAControlWithoutACaption_data() { RowsOfLanguages(); }
    void everySpokenNameIsThatOfAControlWithoutACaption()
    {
        QFETCH(QString, name);
        const Player player;
        const QList<LanguageEntry> voices = ReadLanguageFile(name).EntriesOf("Voci");
        QVERIFY(!voices.isEmpty());
        for (const LanguageEntry &voice : voices) {
            QVERIFY2(!voice.Value.trimmed().isEmpty(), voice.Name().constData());
            const auto window = MakeWindow(WindowOf(voice));
            QVERIFY2(window, voice.Name().constData());
            int named = 0;
            for (const platform::Control *control : window->Controls())
                if (VoiceOf(*control, {voice}) != nullptr) {
                    QVERIFY2(!control->SpokenName().isEmpty(), voice.Name().constData());
                    ++named;
                }
            QVERIFY2(named > 0, voice.Name().constData());
        }
    }

    void everySpokenNameOfTheDesignHasAKeyAndItalianSaysIt()
    {
        const Player player;
        const QList<LanguageEntry> voices =
            ReadLanguageFile(QStringLiteral("italiano.lng")).EntriesOf("Voci");
        for (const QString &name : WindowNames()) {
            const auto window = MakeWindow(name);
            for (const platform::Control *control : window->Controls()) {
                // A square of the palette is called by its six digits in every language.
                if (control->SpokenName().isEmpty() ||
                    control->Name() == QStringLiteral("CasellaColorata"))
                    continue;
                const LanguageEntry *voice = VoiceOf(*control, voices);
                QVERIFY2(voice != nullptr, qPrintable(name + QLatin1Char('.') + control->Key()));
                QCOMPARE(Spoken(*voice, *control), control->SpokenName());
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
