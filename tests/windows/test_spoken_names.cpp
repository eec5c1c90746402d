// What a screen reader finds in each window: every control has a name, in the program's language.
#include "core/palette.h"
#include "language/language.h"
#include "menu/form_menu.h"
#include "platform/controls/button.h"
#include "platform/controls/frame.h"
#include "platform/controls/label.h"
#include "platform/controls/shape.h"
#include "platform/controls/status_bar.h"
#include "platform/controls/up_down.h"
#include "support/application_folder.h"
#include "support/exercise_fixture.h"
#include "support/language_file.h"
#include "support/registered_tests.h"
#include "support/windows.h"

#include <QAccessible>
#include <QComboBox>
#include <QTest>
#include <QToolButton>

using namespace platform;

namespace {

QString NameOf(QWidget *widget)
{
    const QAccessibleInterface *reached = QAccessible::queryAccessibleInterface(widget);
    if (reached == nullptr)
        return {};
    // The name of a drop-down list is what is chosen in it; a label of its own tells what it is.
    if (qobject_cast<QComboBox *>(widget) != nullptr) {
        const auto labels = reached->relations(QAccessible::Label);
        return labels.isEmpty() ? QString() : labels.first().first->text(QAccessible::Name);
    }
    return reached->text(QAccessible::Name);
}

QStringList NamesOf(const VisualControl &control)
{
    if (dynamic_cast<const UpDown *>(&control) == nullptr)
        return {NameOf(control.Widget())};
    QStringList names;
    for (QToolButton *arrow : control.Widget()->findChildren<QToolButton *>())
        names << NameOf(arrow);
    return names;
}

// Labels, frames and the status bar are read by their texts, and a shape is a line round something
// else.
bool IsReached(const VisualControl &control)
{
    if (dynamic_cast<const Label *>(&control) != nullptr ||
        dynamic_cast<const Frame *>(&control) != nullptr ||
        dynamic_cast<const StatusBar *>(&control) != nullptr ||
        dynamic_cast<const Shape *>(&control) != nullptr)
        return false;
    // Never shown.
    const QString &name = control.Name();
    const QString &window = control.Parent().Name();
    const bool grid = window == QStringLiteral("FormEs6") || window == QStringLiteral("FormEs7");
    return name.compare(QStringLiteral("PicMerlino"), Qt::CaseInsensitive) != 0 &&
           !(grid && (name == QStringLiteral("Picture1") || name == QStringLiteral("Image1")));
}

QList<const VisualControl *> ReachedIn(const Form &window)
{
    QList<const VisualControl *> reached;
    for (const Control *control : window.Controls())
        if (const auto *visual = dynamic_cast<const VisualControl *>(control))
            if (IsReached(*visual))
                reached << visual;
    return reached;
}

QByteArray Described(const Control &control)
{
    return (control.Parent().Name() + QLatin1Char('.') + control.Key()).toUtf8();
}

// A language whose every spoken name begins with a mark and is like no other.
QByteArray MarkedVoices()
{
    QByteArray content = "[Voci]\r\n";
    int number = 100;
    for (const LanguageEntry &voice :
         ReadLanguageFile(QStringLiteral("italiano.lng")).EntriesOf("Voci")) {
        const QByteArray mark = "voce" + QByteArray::number(number++);
        content += voice.Key + "=\"" + mark +
                   (voice.Value.contains(" / ") ? " / " + mark + "giu" : "") + "\"\r\n";
    }
    return content;
}

} // namespace

class TestSpokenNames : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyControlHasANameInEachLanguage_data() { RowsOfLanguages(); }
    void everyControlHasANameInEachLanguage()
    {
        QFETCH(QString, name);
        const Player player;
        PreparaColoriWeb();
        LinguaCorrente = name.chopped(4);
        for (const QString &windowName : WindowNames()) {
            const auto window = MakeWindow(windowName);
            MLSCaricaForm(*window);
            for (const VisualControl *control : ReachedIn(*window)) {
                const QStringList names = NamesOf(*control);
                QVERIFY(!names.isEmpty());
                for (const QString &spoken : names)
                    QVERIFY2(!spoken.trimmed().isEmpty(), Described(*control).constData());
            }
        }
    }

    void everySpokenNameIsTakenFromTheLanguage()
    {
        Player player;
        const ApplicationFolder folder(player.Host);
        folder.WriteLanguage(MarkedVoices());
        LeggiLinguaCorrente();
        QStringList said;
        for (const QString &windowName : WindowNames()) {
            const auto window = MakeWindow(windowName);
            MLSCaricaForm(*window);
            for (const VisualControl *control : ReachedIn(*window)) {
                // Six digits that are the same in all languages.
                if (control->SpokenName().isEmpty() ||
                    control->Name() == QStringLiteral("CasellaColorata"))
                    continue;
                for (const QString &spoken : NamesOf(*control)) {
                    QVERIFY2(spoken.startsWith(QStringLiteral("voce")),
                             Described(*control).constData());
                    QVERIFY2(!said.contains(spoken), Described(*control).constData());
                    // The two arrows of a field share one line of the file, and say a half each.
                    QVERIFY2(!spoken.contains(QLatin1Char('/')), Described(*control).constData());
                    said << spoken;
                }
            }
        }
    }

    void theElementsOfANamedArrayAreCountedFromOne()
    {
        Player player;
        const ApplicationFolder folder(player.Host);
        folder.WriteLanguage("[Voci]\r\nFormEs6.ShockwaveFlash1=House\r\n"
                             "FormEs6.ShockwaveFlash1(2)=The third house\r\n");
        LeggiLinguaCorrente();
        const auto window = MakeWindow(QStringLiteral("FormEs6"));
        MLSCaricaForm(*window);
        QStringList names;
        for (const VisualControl *control : ReachedIn(*window))
            if (control->Name() == QStringLiteral("ShockwaveFlash1"))
                names << NamesOf(*control);
        QCOMPARE(names.size(), 12);
        QCOMPARE(names.mid(0, 4),
                 QStringList({QStringLiteral("House 1"), QStringLiteral("House 2"),
                              QStringLiteral("The third house"), QStringLiteral("House 4")}));
        QCOMPARE(names.last(), QStringLiteral("House 12"));
    }

    // In a large file sections play no part: a window is told apart by the key.
    void aLargeLanguageFileNamesTheControlsToo()
    {
        Player player;
        const ApplicationFolder folder(player.Host);
        QByteArray content = MarkedVoices();
        while (content.size() <= 64000)
            content += "; " + QByteArray(60, '-') + "\r\n";
        folder.WriteLanguage(content);
        LeggiLinguaCorrente();
        const auto window = MakeWindow(QStringLiteral("FormEs4"));
        MLSCaricaForm(*window);
        for (const VisualControl *control : ReachedIn(*window))
            QVERIFY2(NamesOf(*control).first().startsWith(QStringLiteral("voce")),
                     Described(*control).constData());
    }

    void aLanguageChosenInTheMenuIsSpokenAtOnceAndOneWithoutNamesGivesTheItalianOnes()
    {
        Player player;
        const ApplicationFolder folder(player.Host);
        folder.WriteLanguage("[Strings]\r\n0004=Giusti\r\n");
        folder.Write(QStringLiteral("lngmorlene/due.lng"),
                     "[Voci]\r\nFormMenu.Image1(0)=Second language\r\nFormMenu.Combo1=Child\r\n");
        LinguaCorrente.clear();
        auto *menu = new FormMenu;
        menu->Show();
        QCoreApplication::processEvents();
        QCOMPARE(NameOf(menu->Image1(0).Widget()), QStringLiteral("Vero o falso"));
        QCOMPARE(NameOf(menu->Combo1.Widget()), QStringLiteral("Giocatore"));
        menu->mnuLanguage.OnClick(0);
        QCOMPARE(LinguaCorrente, QStringLiteral("due"));
        QCOMPARE(NameOf(menu->Image1(0).Widget()), QStringLiteral("Second language"));
        QCOMPARE(NameOf(menu->Image1(1).Widget()), QStringLiteral("Uguale - diverso"));
        QCOMPARE(NameOf(menu->Combo1.Widget()), QStringLiteral("Child"));
        menu->mnuLanguage.OnClick(1);
        QCOMPARE(LinguaCorrente, QStringLiteral("prova"));
        QCOMPARE(NameOf(menu->Image1(0).Widget()), QStringLiteral("Vero o falso"));
        QCOMPARE(NameOf(menu->Combo1.Widget()), QStringLiteral("Giocatore"));
    }

    void aCaptionGoesBeforeTheSpokenNameOfAButton()
    {
        const Player player;
        Form form("Finestra", 3000, 3000);
        Button button({form, "Command1"}, {0, 0, 900, 600});
        button.SetSpokenName(QStringLiteral("Avanti"));
        QCOMPARE(NameOf(button.Widget()), QStringLiteral("Avanti"));
        button.SetCaption(QStringLiteral("&Vero"));
        QCOMPARE(NameOf(button.Widget()), QStringLiteral("Vero"));
        button.TranslateSpokenName(QStringLiteral("Next"));
        QCOMPARE(NameOf(button.Widget()), QStringLiteral("Vero"));
        button.SetCaption({});
        QCOMPARE(NameOf(button.Widget()), QStringLiteral("Next"));
    }
};

MORLENE_TEST(TestSpokenNames)
#include "test_spoken_names.moc"
