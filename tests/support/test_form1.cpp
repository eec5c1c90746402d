// The choice of houses to colour by hand: each goes to the printing dialog, and the exercise that
// asked comes back.
#include "platform/movies/drawn_picture.h"
#include "support/windows/form1.h"

#include "printing/frm_stampa.h"
#include "printing/print_fields.h"
#include "support/exercise_fixture.h"
#include "support/registered_tests.h"

#include <QImage>
#include <QPixmap>
#include <QTest>

#include <algorithm>
#include <cmath>

using namespace platform;

namespace {

int Chroma(const QColor &color)
{
    const auto [least, most] = std::minmax({color.red(), color.green(), color.blue()});
    return most - least;
}

} // namespace

class TestForm1 : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { AzzeraStampa(); }

    void eachHouseGoesToThePrintingDialog()
    {
        Player player;
        auto *window = new Form1;
        player.Host.ExpectModal([&](Form &shown) {
            QCOMPARE(&shown, window);
            for (int i = 0; i < 3; ++i) {
                player.Host.ExpectModal([&](Form &form) {
                    const auto &dialog = dynamic_cast<FrmStampa &>(form);
                    QCOMPARE(std::get<Control *>(Stampa.OggettoStampa),
                             static_cast<Control *>(&window->Picture1(i)));
                    QCOMPARE(dialog.txtPrX.Text(), QStringLiteral("10"));
                    QCOMPARE(dialog.txtPrY.Text(), QStringLiteral("10"));
                    QCOMPARE(dialog.txtPrW.Text(), QStringLiteral("100"));
                    QCOMPARE(dialog.txtPrH.Text(), QStringLiteral("100"));
                    QCOMPARE(Stampa.OrientamentoRichiesto, 1);
                    QCOMPARE(Stampa.TitoloStampa, QString());
                    form.Unload();
                });
                ClickOn(window->Picture1(i));
            }
            window->mnuesci.OnClick();
        });
        window->ShowModal();
        QVERIFY(Form::Find(QStringLiteral("Form1")) == nullptr);
    }

    void itStandsBeforeTheWindowThatOpenedItAndGivesWayToIt()
    {
        Player player;
        auto *menu = new FormMenu;
        menu->Show();
        int activations = 0;
        menu->OnActivate = [&] { ++activations; };
        player.Host.ExpectModal([&](Form &shown) {
            QVERIFY(std::abs(shown.Width() - ScreenWidth() * 0.75) < 15);
            QVERIFY(std::abs(shown.Left() - (ScreenWidth() - shown.Width()) / 2) < 15);
            dynamic_cast<Form1 &>(shown).mnuesci.OnClick();
        });
        (new Form1)->ShowModal();
        QCOMPARE(activations, 1);
        QVERIFY(!player.Host.Ended);
    }

    // Nothing is filled but with white: what is printed is there to be coloured.
    void theHousesAreLinesOnWhiteAndDifferent()
    {
        const ScriptedHost host;
        QList<QImage> drawings;
        for (int i = 0; i < 3; ++i) {
            const QPixmap drawn =
                DrawnPicture(QStringLiteral("da_colorare\\casetta_%1").arg(i), QSize(300, 360), 1);
            QVERIFY(!drawn.isNull());
            const QImage image = drawn.toImage();
            int lines = 0;
            for (int y = 0; y < image.height(); ++y)
                for (int x = 0; x < image.width(); ++x) {
                    const QColor color = image.pixelColor(x, y);
                    // Between the ink and white, or nothing.
                    QVERIFY2(color.alpha() < 255 || Chroma(color) <= 30, qPrintable(color.name()));
                    lines += color.alpha() == 255 && color.lightness() < 100 ? 1 : 0;
                }
            const int all = image.width() * image.height();
            QVERIFY(lines > all / 40);
            QVERIFY(lines < all / 4);
            QVERIFY(!drawings.contains(image));
            drawings << image;
        }
    }

    void nothingOfAHouseToColourIsCutAtTheEdge()
    {
        const ScriptedHost host;
        for (int i = 0; i < 3; ++i) {
            const QImage image =
                DrawnPicture(QStringLiteral("da_colorare\\casetta_%1").arg(i), QSize(300, 360), 1)
                    .toImage();
            for (int y = 0; y < image.height(); ++y)
                for (const int x : {0, image.width() - 1})
                    QVERIFY2(image.pixelColor(x, y).alpha() == 0,
                             qPrintable(QStringLiteral("%1: %2, %3").arg(i).arg(x).arg(y)));
        }
    }
};

MORLENE_TEST(TestForm1)
#include "test_form1.moc"
