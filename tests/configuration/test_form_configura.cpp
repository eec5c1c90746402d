// The adult's window: each control and its variable, the players, and what stands as told although
// it looks like a fault.
#include "configuration/form_configura.h"

#include "core/palette.h"
#include "language/language.h"
#include "platform/base/errors.h"
#include "platform/base/local_text.h"
#include "platform/machine/application.h"
#include "support/cls_resize.h"
#include "support/exercise_fixture.h"
#include "support/registered_tests.h"

#include <QDir>
#include <QListWidget>
#include <QTest>

using namespace platform;

namespace {

const QString Settings = QStringLiteral("ImpostazioniProgrammiTesmi/morlenekvt/");

QString ProfilePath(const QString &name)
{
    return QStringLiteral("C:\\ImpostazioniProgrammiTesmi\\morlenekvt\\") + name;
}

class Adult : public Player {
public:
    Adult()
    {
        PreparaColoriWeb();
        QDir().mkpath(Host.Drive.filePath(Settings));
    }

    FormConfigura &OpenWindow()
    {
        auto *window = new FormConfigura;
        window->Show();
        QCoreApplication::processEvents();
        Host.TakeEvents();
        return *window;
    }

    // Saves the settings in force as the profile of a player.
    void Save(const QString &name) const
    {
        const QString file = FileUtente;
        FileUtente = ProfilePath(name + QStringLiteral(".ini"));
        SalvaImpostazioni();
        FileUtente = file;
    }

    QByteArray Profile(const QString &name) const
    {
        return Host.DriveFile(Settings + name + QStringLiteral(".ini"));
    }

    QStringList Profiles() const
    {
        return QDir(Host.Drive.filePath(Settings)).entryList(QDir::Files, QDir::Name);
    }

    // Questions for a colour's names, with their answers.
    void AnswerNames(const QStringList &names)
    {
        const QStringList keys = {QStringLiteral("0042"), QStringLiteral("0043"),
                                  QStringLiteral("0044"), QStringLiteral("0045")};
        for (int i = 0; i < 4; ++i)
            Host.ExpectInput(MLSTesto(keys.at(i)), names.at(i));
    }
};

QString ColorOf(const FormConfigura &window, const QString &part)
{
    for (const QString &shown : window.ShockwaveFlash1.Shown().split(QStringLiteral(", ")))
        if (shown.section(QLatin1Char(' '), 0, 0) == part)
            return shown.section(QLatin1Char(' '), 1);
    return {};
}

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
    // --- Opening and pages ---

    void theWindowOpensOnThePlayersWithTheNameAndTheWholeScreen()
    {
        Adult adult;
        NomeUtente = QStringLiteral("Anna");
        FormConfigura &window = adult.OpenWindow();
        QCOMPARE(ShownPage(window), 1);
        QCOMPARE(window.TabStrip1.SelectedItem(), 1);
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

    // --- Each control and its variable ---

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

    // --- Fonts and colours ---

    void smallAndCapitalLettersTakeTheChosenFont()
    {
        Adult adult;
        FontScelto = FontCorrente = QStringLiteral("Verdana");
        const FormConfigura &window = adult.OpenWindow();
        QVERIFY(window.minuscolo.Value());
        FontCorrente = QStringLiteral("x");
        ClickOn(window.maiuscolo);
        QCOMPARE(TipoCarattere, QStringLiteral("maiuscolo"));
        QCOMPARE(FontCorrente, QStringLiteral("Verdana"));
        QCOMPARE(window.LabelFontSelezionato(0).Caption(), QStringLiteral("LA PORTA È ROSSA."));
        QCOMPARE(window.LabelFontSelezionato(1).Font().Name, QStringLiteral("Verdana"));
        ClickOn(window.minuscolo);
        QCOMPARE(TipoCarattere, QStringLiteral("minuscolo"));
        QCOMPARE(window.LabelFontSelezionato(0).Caption(), QStringLiteral("la porta è rossa."));
        QCOMPARE(window.corsivo.Font().Name, QStringLiteral("Indis1"));
    }

    void cursiveKeepsTheFontInForceForTheWayBack()
    {
        Adult adult;
        FontScelto = FontCorrente = QStringLiteral("Verdana");
        const FormConfigura &window = adult.OpenWindow();
        ClickOn(window.corsivo);
        QCOMPARE(TipoCarattere, QStringLiteral("corsivo"));
        QCOMPARE(FontCorrente, QStringLiteral("Indis1"));
        QCOMPARE(FontScelto, QStringLiteral("Verdana"));
        QCOMPARE(window.LabelFontSelezionato(0).Font().Name, QStringLiteral("Indis1"));
        ClickOn(window.minuscolo);
        QCOMPARE(FontCorrente, QStringLiteral("Verdana"));
    }

    void enteringInCursiveLosesTheFontChosenBefore()
    {
        Adult adult;
        TipoCarattere = QStringLiteral("corsivo");
        FontCorrente = QStringLiteral("Indis1");
        FontScelto = QStringLiteral("Verdana");
        const FormConfigura &window = adult.OpenWindow();
        QCOMPARE(FontScelto, QStringLiteral("Indis1"));
        ClickOn(window.minuscolo);
        QCOMPARE(FontCorrente, QStringLiteral("Indis1"));
    }

    void theFontDialogChangesFontAndSize()
    {
        Adult adult;
        const FormConfigura &window = adult.OpenWindow();
        adult.Host.ExpectFont(std::nullopt);
        ClickOn(window.CommandSceltaFont);
        QCOMPARE(FontCorrente, QStringLiteral("arial"));
        adult.Host.ExpectFont(FontChoice{QStringLiteral("Verdana"), 28, true, false, false});
        ClickOn(window.CommandSceltaFont);
        QCOMPARE(FontCorrente, QStringLiteral("Verdana"));
        QCOMPARE(FontScelto, QStringLiteral("Verdana"));
        QCOMPARE(DimensioneFont, int16_t{28});
        QVERIFY(window.LabelFontSelezionato(0).Font().Bold);
        QCOMPARE(window.LabelFontSelezionato(1).Font().Name, QStringLiteral("Verdana"));
        QCOMPARE(window.LabelFontSelezionato(1).Font().Size, 28.0);
    }

    void inCursiveTheFontDialogChangesOnlyTheChosenFontAndTheSize()
    {
        Adult adult;
        const FormConfigura &window = adult.OpenWindow();
        ClickOn(window.corsivo);
        adult.Host.ExpectFont(FontChoice{QStringLiteral("Verdana"), 30, false, false, false});
        adult.Host.ExpectBox(Box{.Text = MLSTesto(QStringLiteral("0051")) + QLatin1Char('\n') +
                                         MLSTesto(QStringLiteral("0052")),
                                 .Title = QStringLiteral("Morlenekvt"),
                                 .Icon = BoxIcon::Information});
        ClickOn(window.CommandSceltaFont);
        QCOMPARE(FontCorrente, QStringLiteral("Indis1"));
        QCOMPARE(FontScelto, QStringLiteral("Verdana"));
        QCOMPARE(DimensioneFont, int16_t{30});
        QCOMPARE(window.LabelFontSelezionato(0).Font().Name, QStringLiteral("Indis1"));
        QCOMPARE(TipoCarattere, QStringLiteral("corsivo"));
    }

    void aFontSizeThatCannotBeLeavesSilently()
    {
        Adult adult;
        const FormConfigura &window = adult.OpenWindow();
        adult.Host.ExpectFont(FontChoice{QStringLiteral("Verdana"), 0, false, false, false});
        ClickOn(window.CommandSceltaFont);
        QCOMPARE(adult.Host.FatalNumber, 0);
        QCOMPARE(FontCorrente, QStringLiteral("arial"));
        QCOMPARE(DimensioneFont, int16_t{24});
    }

    void eachColourDialogWritesItsVariableAndCancellingKeepsIt()
    {
        Adult adult;
        const FormConfigura &window = adult.OpenWindow();
        struct Case {
            const Button &Knob;
            double &Variable;
        };
        const Case cases[] = {{window.Command1, ColorePulsantiSelezionati},
                              {window.CommandSceltaColoreBottoni, ColoreBottoni},
                              {window.CommandSceltaColoreFont, ColoreFont},
                              {window.CommandSceltaSfondoTesto, ColoreSfondoTesto}};
        Color color = 0x00102030;
        for (const Case &now : cases) {
            const double before = now.Variable;
            adult.Host.ExpectColor(std::nullopt);
            ClickOn(now.Knob);
            QCOMPARE(now.Variable, before);
            adult.Host.ExpectColor(++color);
            ClickOn(now.Knob);
            QCOMPARE(now.Variable, static_cast<double>(color));
        }
        QCOMPARE(window.Command1.BackColor(), Color{0x00102031});
        QCOMPARE(window.CommandSceltaColoreBottoni.BackColor(), Color{0x00102032});
        QCOMPARE(window.LabelFontSelezionato(0).ForeColor(), Color{0x00102033});
        QCOMPARE(window.LabelFontSelezionato(0).BackColor(), Color{0x00102034});
    }

    void onlyTheButtonOfTheLitOnesShowsItsColourFromTheStart()
    {
        Adult adult;
        ColorePulsantiSelezionati = 0x00112233;
        ColoreBottoni = 0x00445566;
        ColoreSfondoTesto = 0x00778899;
        const FormConfigura &window = adult.OpenWindow();
        ClickOn(window.maiuscolo);
        QCOMPARE(window.Command1.BackColor(), Color{0x00112233});
        QCOMPARE(window.CommandSceltaColoreBottoni.BackColor(), SystemButtonFace);
        QCOMPARE(window.LabelFontSelezionato(0).BackColor(), Color{0x00FFFFFF});
        QCOMPARE(window.LabelFontSelezionato(1).BackColor(), Color{0x00FFFFFF});
        // Closing the dialog shows it, cancelled or not.
        adult.Host.ExpectColor(std::nullopt);
        ClickOn(window.CommandSceltaColoreBottoni);
        QCOMPARE(window.CommandSceltaColoreBottoni.BackColor(), Color{0x00445566});
    }

    void systemColoursSurviveTheDialogs()
    {
        Adult adult;
        FormConfigura &window = adult.OpenWindow();
        adult.Host.ExpectColor(std::nullopt);
        ClickOn(window.CommandSceltaColoreBottoni);
        window.mnuEsci.OnClick();
        QVERIFY(adult.Profile(QStringLiteral("_predefinito")).isEmpty());
        const QByteArray saved =
            adult.Host.DriveFile(Settings + QStringLiteral("_predefinito.INI"));
        QVERIFY(saved.contains("\r\n-2147483630 \r\n-2147483633 \r\n"));
    }

    void oneBackgroundForAllWindowsIsChosenAndShown()
    {
        Adult adult;
        FormConfigura &window = adult.OpenWindow();
        QVERIFY(window.OptionColoreCasualeFisso(0).Value());
        QVERIFY(!window.CommandSceltaColori.Enabled());
        QCOMPARE(window.FrameFonts.BackColor(), SystemButtonFace);
        ClickOn(window.OptionColoreCasualeFisso(1));
        QVERIFY(!ColoriVari);
        QVERIFY(window.CommandSceltaColori.Enabled());
        QCOMPARE(window.FrameFonts.BackColor(), ToColor(ColoreSfondo));
        adult.Host.ExpectColor(Color{0x00FF8040});
        ClickOn(window.CommandSceltaColori);
        QCOMPARE(ColoreSfondo, 16744512.0);
        QCOMPARE(window.FrameFonts.BackColor(), Color{0x00FF8040});
        QCOMPARE(window.FrameMorlene.BackColor(), Color{0x00FF8040});
        for (const OptionButton &row : window.Option2)
            QCOMPARE(row.BackColor(), Color{0x00FF8040});
        ClickOn(window.OptionColoreCasualeFisso(0));
        QVERIFY(ColoriVari);
        QVERIFY(!window.CommandSceltaColori.Enabled());
        QCOMPARE(window.FrameFonts.BackColor(), SystemButtonFace);
    }

    void aCancelledBackgroundTakesTheLastColourOfTheHiddenLabel()
    {
        Adult adult;
        ColoriVari = false;
        ColoreSfondo = 1;
        const FormConfigura &window = adult.OpenWindow();
        const double designed = static_cast<double>(window.LabelPerColore.ForeColor());
        adult.Host.ExpectColor(std::nullopt);
        ClickOn(window.CommandSceltaColori);
        QCOMPARE(ColoreSfondo, designed);
        adult.Host.ExpectColor(Color{0x00112233});
        ClickOn(window.Command1);
        adult.Host.ExpectColor(std::nullopt);
        ClickOn(window.CommandSceltaColori);
        QCOMPARE(ColoreSfondo, static_cast<double>(0x00112233));
        // The text's colour goes another way.
        adult.Host.ExpectColor(Color{0x00445566});
        ClickOn(window.CommandSceltaColoreFont);
        adult.Host.ExpectColor(std::nullopt);
        ClickOn(window.CommandSceltaColori);
        QCOMPARE(ColoreSfondo, static_cast<double>(0x00112233));
    }

    // --- Colours of the figures ---

    void thePreviewShowsTheColoursAndTheirNames()
    {
        Adult adult;
        Colori(0, 0) = QStringLiteral("ABCDEF");
        FormConfigura &window = adult.OpenWindow();
        QCOMPARE(window.Option2(1).Caption(), QStringLiteral("Colore 2"));
        window.TabStrip1.SetSelectedItem(2);
        QCOMPARE(window.Option2(0).Caption(), QStringLiteral("Sfondo"));
        QCOMPARE(window.Option2(2).Caption(), QStringLiteral("rosso - rossi - rossa - rosse"));
        QCOMPARE(window.ShockwaveFlash1.BGColor(), QStringLiteral("ABCDEF"));
        QCOMPARE(ColorOf(window, QStringLiteral("tetto")), QStringLiteral("00FF00"));
        QCOMPARE(ColorOf(window, QStringLiteral("comignolo")), QStringLiteral("FF0000"));
        QCOMPARE(ColorOf(window, QStringLiteral("pareti")), QStringLiteral("FF0000"));
        QCOMPARE(ColorOf(window, QStringLiteral("porta")), QStringLiteral("0000FF"));
        QCOMPARE(ColorOf(window, QStringLiteral("finestre")), QStringLiteral("FFFF00"));
        QCOMPARE(ColorOf(window, QStringLiteral("gradino")), QStringLiteral("00FF00"));
        const QStringList events = adult.Host.TakeEvents();
        const auto hourglass = events.indexOf(QStringLiteral("FormConfigura.MousePointer=11"));
        QVERIFY(hourglass >= 0);
        QVERIFY(events.indexOf(QStringLiteral("FormConfigura.MousePointer=0")) > hourglass);
    }

    void aSquareGivesItsColourAndAsksFourNames()
    {
        Adult adult;
        FormConfigura &window = adult.OpenWindow();
        window.TabStrip1.SetSelectedItem(2);
        ClickOn(window.Option2(3));
        const QStringList names = {QStringLiteral("rosa"), QStringLiteral("rosa"), QString(),
                                   QStringLiteral("rosee")};
        adult.AnswerNames(names);
        ClickOn(window.CasellaColorata(6));
        QCOMPARE(Colori(3, 0), ColoriWebHex.at(6));
        for (int i = 1; i <= 4; ++i)
            QCOMPARE(Colori(3, i), names.at(i - 1));
        QCOMPARE(window.Option2(3).Caption(), QStringLiteral("rosa - rosa -  - rosee"));
        QCOMPARE(ColorOf(window, QStringLiteral("porta")), QStringLiteral("FFCC00"));
        QCOMPARE(Colori(2, 0), QStringLiteral("FF0000"));
        // No name is proposed, not even the one in force.
        QCOMPARE(adult.Host.LastInputTitle, QStringLiteral("Morlenekvt"));
        QCOMPARE(adult.Host.LastInputProposal, QString());
    }

    void theBackgroundAsksNothing()
    {
        Adult adult;
        FormConfigura &window = adult.OpenWindow();
        window.TabStrip1.SetSelectedItem(2);
        ClickOn(window.Option2(0));
        ClickOn(window.CasellaColorata(215));
        QCOMPARE(Colori(0, 0), ColoriWebHex.at(215));
        QCOMPARE(Colori(0, 1), QStringLiteral("sfondo"));
        QCOMPARE(window.ShockwaveFlash1.BGColor(), ColoriWebHex.at(215));
    }

    void theDefaultColoursComeBackAtOnce()
    {
        Adult adult;
        Colori(1, 0) = QStringLiteral("123456");
        Colori(1, 1) = QStringLiteral("x");
        FormConfigura &window = adult.OpenWindow();
        window.TabStrip1.SetSelectedItem(2);
        ClickOn(window.Command4);
        QCOMPARE(Colori(1, 0), QStringLiteral("00FF00"));
        QCOMPARE(window.Option2(1).Caption(), QStringLiteral("verde - verdi - verde - verdi"));
        QCOMPARE(ColorOf(window, QStringLiteral("tetto")), QStringLiteral("00FF00"));
    }

    void theDefaultColoursLastForThisPlayerAndOnlyAfterLeaving()
    {
        Adult adult;
        Colori(1, 1) = QStringLiteral("turchese");
        adult.Save(QStringLiteral("anna"));
        FileUtente = ProfilePath(QStringLiteral("bruno.ini"));
        NomeUtente = QStringLiteral("bruno");
        SalvaImpostazioni();
        FormConfigura &window = adult.OpenWindow();
        window.TabStrip1.SetSelectedItem(2);
        ClickOn(window.Command4);
        QCOMPARE(Colori(1, 1), QStringLiteral("verde"));
        QVERIFY(adult.Profile(QStringLiteral("bruno")).contains("turchese"));
        window.mnuEsci.OnClick();
        QVERIFY(!adult.Profile(QStringLiteral("bruno")).contains("turchese"));
        QVERIFY(adult.Profile(QStringLiteral("bruno")).contains("\r\nverde\r\nverdi\r\n"));
        QVERIFY(adult.Profile(QStringLiteral("anna")).contains("turchese"));
    }

    // --- Players ---

    void aNewPlayerIsACopyOfTheSettingsInForce()
    {
        Adult adult;
        DimensioneFont = 33;
        FormConfigura &window = adult.OpenWindow();
        ClickOn(window.OptionUtente(2));
        QVERIFY(window.TextNuovoUtente.Visible());
        QVERIFY(window.TextNuovoUtente.HasFocus());
        // The settings went to the old player first, whose name has this ending.
        QCOMPARE(adult.Profiles(), QStringList{QStringLiteral("_predefinito.INI")});
        QTest::keyClicks(window.TextNuovoUtente.Widget(), QStringLiteral("Li"));
        QCOMPARE(NomeUtente, QStringLiteral("Li"));
        QCOMPARE(window.Label4.Caption(), QStringLiteral("Li"));
        QCOMPARE(FileUtente, ProfilePath(QStringLiteral("Li.ini")));
        // Each key goes to another file, and none is written.
        QCOMPARE(adult.Profiles().size(), 1);
        window.mnuEsci.OnClick();
        QVERIFY(adult.Profile(QStringLiteral("Li")).contains("\r\n 33 \r\n"));
        QVERIFY(!adult.Host.DriveHas(Settings + QStringLiteral("L.ini")));
        QVERIFY(Form::Find(QStringLiteral("FormMenu")) != nullptr);
        QVERIFY(Form::Find(QStringLiteral("FormConfigura")) == nullptr);
    }

    void blanksAreNoNewName()
    {
        Adult adult;
        FormConfigura &window = adult.OpenWindow();
        ClickOn(window.OptionUtente(2));
        QTest::keyClicks(window.TextNuovoUtente.Widget(), QStringLiteral("  "));
        QCOMPARE(NomeUtente, QStringLiteral("_predefinito"));
        QTest::keyClicks(window.TextNuovoUtente.Widget(), QStringLiteral("a "));
        QCOMPARE(NomeUtente, QStringLiteral("  a "));
        QCOMPARE(FileUtente, ProfilePath(QStringLiteral("  a .ini")));
        // An emptied field keeps the last name.
        window.TextNuovoUtente.SetText({});
        QCOMPARE(NomeUtente, QStringLiteral("  a "));
        window.mnuEsci.OnClick();
        QVERIFY(adult.Host.DriveHas(Settings + QStringLiteral("  a .ini")));
    }

    void choosingTheDefaultPlayerSavesTheNewNameAndCarriesTheSettingsOver()
    {
        Adult adult;
        adult.Save(QStringLiteral("_predefinito"));
        DimensioneFont = 40;
        FormConfigura &window = adult.OpenWindow();
        ClickOn(window.OptionUtente(2));
        window.TextNuovoUtente.SetText(QStringLiteral("Anna"));
        DimensioneFont = 41;
        ClickOn(window.OptionUtente(0));
        QVERIFY(adult.Profile(QStringLiteral("Anna")).contains("\r\n 41 \r\n"));
        QCOMPARE(NomeUtente, QStringLiteral("_predefinito"));
        QCOMPARE(window.Label4.Caption(), QStringLiteral("_predefinito"));
        QCOMPARE(FileUtente, ProfilePath(QStringLiteral("_predefinito.ini")));
        QVERIFY(!window.TextNuovoUtente.Visible());
        // The default player's file is not read, and then overwritten.
        QCOMPARE(DimensioneFont, int16_t{41});
        QVERIFY(adult.Profile(QStringLiteral("_predefinito")).contains("\r\n 40 \r\n"));
        window.mnuEsci.OnClick();
        QVERIFY(adult.Profile(QStringLiteral("_predefinito")).contains("\r\n 41 \r\n"));
    }

    void thePlayersAreListedInCapitalsWithoutTheDefaultOne()
    {
        Adult adult;
        adult.Save(QStringLiteral("_Predefinito"));
        adult.Save(QStringLiteral("bruno"));
        adult.Save(QStringLiteral("Anna"));
        adult.Host.WriteDriveFile(Settings + QStringLiteral("note.txt"), "x");
        FileUtente = ProfilePath(QStringLiteral("bruno.ini"));
        FormConfigura &window = adult.OpenWindow();
        ClickOn(window.OptionUtente(1));
        QVERIFY(window.ListModificaUtente.Visible());
        QCOMPARE(window.ListModificaUtente.ListCount(), 2);
        QCOMPARE(window.ListModificaUtente.List(0), QStringLiteral("ANNA"));
        QCOMPARE(window.ListModificaUtente.List(1), QStringLiteral("BRUNO"));
        // Again: filled anew, not twice.
        ClickOn(window.OptionUtente(1));
        QCOMPARE(window.ListModificaUtente.ListCount(), 2);
        ClickOn(window.OptionUtente(2));
        QVERIFY(!window.ListModificaUtente.Visible());
    }

    void aListedPlayerIsLoadedAndShownAtOnce()
    {
        Adult adult;
        SuoniAttivi = false;
        TipoCarattere = QStringLiteral("maiuscolo");
        ColoriVari = false;
        ColoreSfondo = 0x00010203;
        ModoInput = 2;
        VelocitaScansione = 12;
        adult.Save(QStringLiteral("anna"));
        ImpostazioniPredefinite();
        FormConfigura &window = adult.OpenWindow();
        ClickOn(window.OptionUtente(1));
        // Changed since that click has saved.
        DimensioneFont = 50;
        window.ListModificaUtente.SetListIndex(0);
        QCOMPARE(NomeUtente, QStringLiteral("ANNA"));
        QCOMPARE(window.Label4.Caption(), QStringLiteral("ANNA"));
        QCOMPARE(FileUtente, ProfilePath(QStringLiteral("ANNA.ini")));
        QVERIFY(!window.CheckSuoni.Value());
        QVERIFY(window.maiuscolo.Value());
        QVERIFY(window.OptionColoreCasualeFisso(1).Value());
        QCOMPARE(window.FrameFonts.BackColor(), Color{0x00010203});
        QCOMPARE(DimensioneFont, int16_t{24});
        QVERIFY(adult.Host.DriveFile(Settings + QStringLiteral("_predefinito.INI"))
                    .contains("\r\n 50 \r\n"));
        // What the clicks raised by code wrote is what was loaded.
        QVERIFY(!SuoniAttivi);
        QVERIFY(!ColoriVari);
        QCOMPARE(TipoCarattere, QStringLiteral("maiuscolo"));
        QCOMPARE(VelocitaScansione, int16_t{12});
        // The options of the input mode are not moved, what belongs to it is.
        QCOMPARE(ModoInput, int16_t{2});
        QVERIFY(window.Option4(0).Value());
        QVERIFY(!window.Option4(2).Value());
        QVERIFY(window.HScroll3.Visible());
        QCOMPARE(window.HScroll3.Value(), 12);
        // No second file that differs only in case.
        window.mnuEsci.OnClick();
        QCOMPARE(adult.Profiles(),
                 QStringList({QStringLiteral("_predefinito.INI"), QStringLiteral("anna.ini")}));
    }

    void aLoadedPlayersFontIsWrittenOverByTheClickThatItRaises()
    {
        Adult adult;
        TipoCarattere = QStringLiteral("maiuscolo");
        FontCorrente = QStringLiteral("Verdana");
        FontScelto = QStringLiteral("Comic Sans MS");
        adult.Save(QStringLiteral("anna"));
        ImpostazioniPredefinite();
        FormConfigura &window = adult.OpenWindow();
        ClickOn(window.OptionUtente(1));
        window.ListModificaUtente.SetListIndex(0);
        QCOMPARE(FontCorrente, QStringLiteral("Comic Sans MS"));
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

    // --- Bad input ---

    void aNameThatCannotBeAFileFailsAtTheNextSaveAndTouchesNothing_data()
    {
        QTest::addColumn<QString>("name");
        for (const char *name : {"../x", "..\\x", "a/b", "con:", "a*", "a?", "\"a\"", "a|b", "<a>"})
            QTest::newRow(name) << QString::fromLatin1(name);
        QTest::newRow("300 letters") << QString(300, QLatin1Char('a'));
        QTest::newRow("control") << QStringLiteral("a\x01");
    }

    void aNameThatCannotBeAFileFailsAtTheNextSaveAndTouchesNothing()
    {
        QFETCH(QString, name);
        Adult adult;
        FormConfigura &window = adult.OpenWindow();
        ClickOn(window.OptionUtente(2));
        window.TextNuovoUtente.SetText(name);
        QCOMPARE(NomeUtente, name);
        Guarded([&] { window.mnuEsci.OnClick(); });
        QCOMPARE(adult.Host.FatalNumber, static_cast<int>(BadFileNameOrNumber));
        QVERIFY(!adult.Host.FatalText.isEmpty());
        QCOMPARE(adult.Profiles(), QStringList{QStringLiteral("_predefinito.INI")});
        QDir drive(adult.Host.Drive.path());
        QCOMPARE(drive.entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
                 QStringList{QStringLiteral("ImpostazioniProgrammiTesmi")});
        QVERIFY(drive.cd(QStringLiteral("ImpostazioniProgrammiTesmi")));
        QCOMPARE(drive.entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
                 QStringList{QStringLiteral("morlenekvt")});
    }

    void aNameInAFolderThatIsNotThereFailsToo()
    {
        Adult adult;
        FormConfigura &window = adult.OpenWindow();
        ClickOn(window.OptionUtente(2));
        window.TextNuovoUtente.SetText(QStringLiteral("a\\b"));
        Guarded([&] { window.mnuEsci.OnClick(); });
        QCOMPARE(adult.Host.FatalNumber, static_cast<int>(PathNotFound));
        QCOMPARE(adult.Profiles(), QStringList{QStringLiteral("_predefinito.INI")});
    }

    void lettersOutsideTheCodePageMakeAFileOfThatName()
    {
        Adult adult;
        FormConfigura &window = adult.OpenWindow();
        ClickOn(window.OptionUtente(2));
        window.TextNuovoUtente.SetText(QStringLiteral("小明 Šárka"));
        window.mnuEsci.OnClick();
        QCOMPARE(adult.Host.FatalNumber, 0);
        QVERIFY(adult.Host.DriveHas(Settings + QStringLiteral("小明 Šárka.ini")));
    }

    void aCommaInAColoursNameBreaksTheProfileAtTheNextLoad()
    {
        Adult adult;
        DimensioneFont = 40;
        FormConfigura &window = adult.OpenWindow();
        window.TabStrip1.SetSelectedItem(2);
        ClickOn(window.Option2(1));
        adult.AnswerNames({QStringLiteral("rosso, scuro"), QStringLiteral("b"), QStringLiteral("c"),
                           QStringLiteral("d")});
        ClickOn(window.CasellaColorata(0));
        QCOMPARE(Colori(1, 1), QStringLiteral("rosso, scuro"));
        window.mnuEsci.OnClick();
        QVERIFY(adult.Host.DriveFile(Settings + QStringLiteral("_predefinito.INI"))
                    .contains("\r\nrosso, scuro\r\n"));
        CaricaImpostazioni();
        QCOMPARE(DimensioneFont, int16_t{24});
        QCOMPARE(Colori(1, 1), QStringLiteral("verde"));
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
