// The page of the figures' colours: squares, names, preview, and the defaults.
#include "configuration/adult.h"
#include "support/registered_tests.h"

#include <QApplication>
#include <QSet>
#include <QTest>

using namespace platform;

namespace {

QString ColorOf(const FormConfigura &window, const QString &part)
{
    for (const QString &shown : window.ShockwaveFlash1.Shown().split(QStringLiteral(", ")))
        if (shown.section(QLatin1Char(' '), 0, 0) == part)
            return shown.section(QLatin1Char(' '), 1);
    return {};
}

} // namespace

class TestConfigFigures : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void thePreviewShowsTheColoursAndTheirNames()
    {
        Adult adult;
        Colori(0, 0) = QStringLiteral("ABCDEF");
        FormConfigura &window = adult.OpenWindow();
        QCOMPARE(window.Option2(1).Caption(), QStringLiteral("Colore 2"));
        adult.Host.TakeEvents();
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

    void thePreviewIsPaintedPartByPart()
    {
        Adult adult;
        FormConfigura &window = adult.OpenWindow();
        adult.Host.TakeEvents();
        window.TabStrip1.SetSelectedItem(2);
        QStringList figure = adult.Host.TakeEvents().filter(QStringLiteral("ShockwaveFlash1."));
        figure.removeAll(QStringLiteral("ShockwaveFlash1.MousePointer=99"));
        QVERIFY(figure.at(0).endsWith(QStringLiteral("morlene1.swf")));
        QCOMPARE(figure.at(1), QStringLiteral("ShockwaveFlash1.GotoFrame=1"));
        QCOMPARE(figure.at(2), QStringLiteral("ShockwaveFlash1.BGColor=FFFFCC"));
        QStringList painted;
        for (const char *pair : {"tetto 00FF00", "comignolo FF0000", "pareti FF0000",
                                 "porta 0000FF", "finestre FFFF00", "gradino 00FF00"}) {
            const QStringList words = QString::fromLatin1(pair).split(QLatin1Char(' '));
            painted << QStringLiteral("ShockwaveFlash1.SetVariable=QualeOggetto %1.interno")
                           .arg(words.at(0))
                    << QStringLiteral("ShockwaveFlash1.SetVariable=TestoColore.QualeColore %1")
                           .arg(words.at(1));
        }
        QCOMPARE(figure.mid(3), painted);
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
    }

    void theArrowsComeToEverySquare()
    {
        Adult adult;
        FormConfigura &window = adult.OpenWindow();
        window.TabStrip1.SetSelectedItem(2);
        window.CasellaColorata(0).SetFocus();
        QSet<int> reached = {0};
        for (QList<int> open = {0}; !open.isEmpty();) {
            const int from = open.takeFirst();
            for (const auto arrow : {Qt::Key_Left, Qt::Key_Right, Qt::Key_Up, Qt::Key_Down}) {
                window.CasellaColorata(from).SetFocus();
                QTest::keyClick(QApplication::focusWidget(), arrow);
                for (const PictureBox &square : window.CasellaColorata)
                    if (square.HasFocus() && !reached.contains(square.Index())) {
                        reached << square.Index();
                        open << square.Index();
                    }
            }
        }
        QCOMPARE(reached.size(), 216);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
        QVERIFY(ColoriWebHex.at(0) != Colori(0, 0));
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
};

MORLENE_TEST(TestConfigFigures)
#include "test_config_figures.moc"
