// The page of letters and colours, with what stands as told although it looks like a fault.
#include "configuration/adult.h"
#include "support/registered_tests.h"

#include <QTest>

using namespace platform;

class TestConfigFonts : public QObject {
    Q_OBJECT

private Q_SLOTS:
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
};

MORLENE_TEST(TestConfigFonts)
#include "test_config_fonts.moc"
