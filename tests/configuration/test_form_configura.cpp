// The adult's window: its pages, what each control writes, the ways to answer, and leaving it.
#include "configuration/adult.h"
#include "platform/base/errors.h"
#include "platform/base/local_text.h"
#include "platform/machine/application.h"
#include "support/registered_tests.h"

#include <QTest>
#include <QWidget>

using namespace platform;

namespace {

// The page that is shown, if it is one, and lies before everything else.
int ShownPage(FormConfigura &window)
{
    const Frame *pages[] = {&window.FrameUtente, &window.FrameMorlene, &window.FrameScelteDid,
                            &window.FrameFonts,  &window.FrameSuoni,   &window.FramePunt};
    int shown = 0;
    for (int i = 0; i < 6; ++i)
        if (pages[i]->Visible())
            shown =
                shown == 0 && pages[i]->Widget() == window.Client()->children().last() ? i + 1 : -1;
    return shown;
}

} // namespace

class TestFormConfigura : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theWindowOpensOnThePlayersWithTheNameAndTheWholeScreen()
    {
        Adult adult;
        NomeUtente = QStringLiteral("Anna");
        FormConfigura &window = adult.OpenWindow();
        QCOMPARE(ShownPage(window), 1);
        QCOMPARE(window.TabStrip1.SelectedItem(), 1);
        QStringList pages;
        for (int page = 1; page <= window.TabStrip1.TabCount(); ++page)
            pages << window.TabStrip1.TabCaption(page);
        QCOMPARE(pages,
                 QStringList({QStringLiteral("Giocatori"), QStringLiteral("Colori morlene"),
                              QStringLiteral("Scelte didattiche"), QStringLiteral("Font e colori"),
                              QStringLiteral("Suoni "), QStringLiteral("Modalità di input")}));
        QCOMPARE(window.Left(), 0.0);
        QCOMPARE(window.Top(), 0.0);
        QCOMPARE(window.Label4.Caption(), QStringLiteral("Anna"));
        QCOMPARE(window.Width(), ScreenWidth());
        QCOMPARE(window.Height(), ScreenHeight());
        QVERIFY(!window.ListModificaUtente.Visible());
        QVERIFY(!window.TextNuovoUtente.Visible());
        QVERIFY(!window.LabelPerColore.Visible());
    }

    void eachTabShowsItsPageAlone()
    {
        Adult adult;
        FormConfigura &window = adult.OpenWindow();
        for (const int page : {4, 2, 6, 3, 5, 1}) {
            window.TabStrip1.SetSelectedItem(page);
            QCOMPARE(ShownPage(window), page);
        }
    }

    void everyControlLiesWithinItsPageAtEveryScreen()
    {
        Adult adult;
        for (const ScreenSize size :
             {ScreenSize{1024, 768}, {1366, 768}, {1920, 1080}, {3840, 2160}}) {
            adult.Host.ScreenSizeNow = size;
            const FormConfigura &window = adult.OpenWindow();
            for (const Control *control : window.Controls()) {
                const auto *visual = dynamic_cast<const VisualControl *>(control);
                if (visual == nullptr)
                    continue;
                const QWidget *widget = visual->Widget();
                QVERIFY2(widget->parentWidget()->rect().contains(widget->geometry()),
                         qPrintable(visual->Key()));
            }
            DropForms();
        }
    }

    void theSquaresFillTheirGridInOrder()
    {
        Adult adult;
        const FormConfigura &window = adult.OpenWindow();
        QCOMPARE(window.CasellaColorata.Count(), 216);
        const FormConfigura design;
        const auto cell = [&design](int i) {
            const PictureBox &square = design.CasellaColorata(i);
            return QPoint(static_cast<int>(square.Left() - 120) / 360,
                          static_cast<int>(square.Top() - 360) / 360);
        };
        QCOMPARE(cell(0), QPoint(0, 0));
        QCOMPARE(cell(9), QPoint(9, 0));
        QCOMPARE(cell(10), QPoint(0, 1));
        QCOMPARE(cell(11), QPoint(5, 1));
        QCOMPARE(cell(17), QPoint(15, 1));
        QCOMPARE(cell(18), QPoint(0, 2));
        QCOMPARE(cell(105), QPoint(10, 7)); // behind three free cells of the row
        QCOMPARE(cell(211), QPoint(15, 14));
        QCOMPARE(cell(212), QPoint(6, 15));
        QCOMPARE(cell(215), QPoint(9, 15));
        QCOMPARE(design.CasellaColorata(0).Width(), 375.0);
        for (int i = 0; i < 216; ++i)
            QCOMPARE(window.CasellaColorata(i).BackColor(),
                     ConvertiLetterale(ColoriWebLetterali.at(static_cast<size_t>(i))));
    }

    void checkBoxesShowTheirVariablesAndWriteThem()
    {
        Adult adult;
        SuoniAttivi = false;
        PassaggioLivelli = SalvaUtente = DisabilitaMousePersonalizzato = true;
        const FormConfigura &window = adult.OpenWindow();
        QVERIFY(!window.CheckSuoni.Value());
        QVERIFY(window.Check1.Value());
        QVERIFY(window.CheckSalvaUtente.Value());
        QVERIFY(window.CheckDisabilitaMousePersonalizzato.Value());
        ClickOn(window.CheckSuoni);
        ClickOn(window.Check1);
        ClickOn(window.CheckSalvaUtente);
        ClickOn(window.CheckDisabilitaMousePersonalizzato);
        QVERIFY(SuoniAttivi);
        QVERIFY(!PassaggioLivelli);
        QVERIFY(!SalvaUtente);
        QVERIFY(!DisabilitaMousePersonalizzato);
        // Nothing is saved before the window is left.
        QCOMPARE(adult.Profiles(), QStringList());
    }

    void eachInputModeShowsWhatBelongsToIt()
    {
        Adult adult;
        const FormConfigura &window = adult.OpenWindow();
        for (const int mode : {2, 1, 3, 0}) {
            ClickOn(window.Option4(mode));
            QCOMPARE(ModoInput, static_cast<int16_t>(mode));
            QCOMPARE(window.HScroll3.Visible(), mode == 2);
            QCOMPARE(window.Label7.Visible(), mode == 2);
            QCOMPARE(window.CheckDisabilitaMousePersonalizzato.Visible(), mode == 0);
        }
    }

    void theInputModeInForceIsChosenWhenTheWindowOpens()
    {
        for (const int mode : {0, 1, 2, 3}) {
            Adult adult;
            ModoInput = static_cast<int16_t>(mode);
            const FormConfigura &window = adult.OpenWindow();
            for (const OptionButton &option : window.Option4)
                QCOMPARE(option.Value(), option.Index() == mode);
            QCOMPARE(window.HScroll3.Visible(), mode == 2);
            QCOMPARE(window.CheckDisabilitaMousePersonalizzato.Visible(), mode == 0);
        }
    }

    void theSpeedIsWrittenInSeconds()
    {
        Adult adult;
        FormConfigura &window = adult.OpenWindow();
        ClickOn(window.Option4(2));
        QCOMPARE(window.HScroll3.Value(), 4);
        QCOMPARE(window.Label7.Caption(),
                 QStringLiteral("Velocità scansione: %1 secondi").arg(LocalNumber(1, 2)));
        window.HScroll3.SetValue(59);
        QCOMPARE(VelocitaScansione, int16_t{59});
        QCOMPARE(window.Label7.Caption(),
                 QStringLiteral("Velocità scansione: %1 secondi").arg(LocalNumber(14.75, 2)));
        QCOMPARE(LocalNumber(14.75, 2).remove(2, 1), QStringLiteral("1475"));
    }

    void aSpeedOutOfRangeStandsAtTheNearestEndAndStays()
    {
        Adult adult;
        ModoInput = 2;
        VelocitaScansione = 100;
        const FormConfigura &window = adult.OpenWindow();
        QCOMPARE(window.HScroll3.Value(), 60);
        QCOMPARE(VelocitaScansione, int16_t{100});
        QVERIFY(window.Label7.Caption().contains(LocalNumber(25, 2)));
        DropForms();
        VelocitaScansione = 1;
        QCOMPARE(adult.OpenWindow().HScroll3.Value(), 4);
        QCOMPARE(VelocitaScansione, int16_t{1});
    }

    void aModeThatNoOptionStandsForIsFatal()
    {
        Adult adult;
        ModoInput = 7;
        Guarded([&] { adult.OpenWindow(); });
        QCOMPARE(adult.Host.FatalNumber, static_cast<int>(NoSuchElement));
    }

    void leavingSavesEvenWithoutAChange()
    {
        Adult adult;
        FormConfigura &window = adult.OpenWindow();
        window.mnuEsci.OnClick();
        QCOMPARE(adult.Host.DriveFile(Settings + QStringLiteral("_predefinito.INI")).count('\n'),
                 43);
    }

    void theWindowsOwnEndSavesNothing()
    {
        Adult adult;
        adult.OpenWindow().Window()->window()->close();
        QVERIFY(adult.Host.Ended);
        QCOMPARE(adult.Profiles(), QStringList());
    }

    void aFolderInTheWayOfTheProfileIsReported()
    {
        Adult adult;
        QDir().mkpath(adult.Host.Drive.filePath(Settings + QStringLiteral("_predefinito.ini")));
        FormConfigura &window = adult.OpenWindow();
        Guarded([&] { window.mnuEsci.OnClick(); });
        QVERIFY(adult.Host.FatalNumber != 0);
        QVERIFY(!adult.Host.FatalText.isEmpty());
    }
};

MORLENE_TEST(TestFormConfigura)
#include "test_form_configura.moc"
