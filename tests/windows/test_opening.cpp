// What each window does first, whatever it is for: it speaks the language in force and grows to the
// screen.
#include "core/palette.h"
#include "language/language.h"
#include "support/application_folder.h"
#include "support/exercise_fixture.h"
#include "support/registered_tests.h"
#include "support/windows.h"

#include <QTest>

#include <cmath>
#include <memory>

using namespace platform;

namespace {

struct Growth {
    int Grown = 0;
    int All = 0;
};

// Of the controls that stand off the left edge, those that stand where the design does, grown.
Growth GrowthOf(const Form &window, const Form &design)
{
    const double across = window.ScaleWidth() / design.ScaleWidth();
    Growth growth;
    for (size_t i = 0; i < design.Controls().size(); ++i) {
        const auto *designed = dynamic_cast<const VisualControl *>(design.Controls().at(i));
        if (designed == nullptr || designed->Left() <= 0)
            continue;
        ++growth.All;
        if (std::abs(window.Controls().at(i)->Left() - designed->Left() * across) < 0.01)
            ++growth.Grown;
    }
    return growth;
}

} // namespace

class TestOpening : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aWindowSpeaksTheLanguageAndGrowsToTheScreen_data()
    {
        QTest::addColumn<QString>("name");
        for (const QString &name : WindowNames())
            // The printing dialog keeps its size, and its caption is that of its mode.
            if (name != QStringLiteral("frmStampa"))
                QTest::newRow(qPrintable(name)) << name;
    }

    void aWindowSpeaksTheLanguageAndGrowsToTheScreen()
    {
        QFETCH(QString, name);
        Player player;
        SuoniAttivi = false;
        NumeroEserciziEseguiti = 1;
        PreparaColoriWeb();
        player.Host.Seed(1);
        player.Host.ScreenSizeNow = {1920, 1080};
        const ApplicationFolder folder(player.Host);
        folder.WriteLanguage("[" + name.toLatin1() + "]\r\n" + name.toLatin1() +
                             ".Caption=Un titolo\r\n");
        LinguaCorrente = QStringLiteral("prova");
        const auto design = MakeWindow(name);
        const double designed = design->ScaleWidth();
        Form *window = MakeWindow(name).release();
        window->Show();
        QCoreApplication::processEvents();
        QCOMPARE(player.Host.FatalNumber, 0);
        QCOMPARE(window->Caption(), QStringLiteral("Un titolo"));
        QVERIFY(window->ScaleWidth() > designed);
        const Growth growth = GrowthOf(*window, *design);
        QVERIFY2(growth.Grown > 0 && growth.Grown * 2 >= growth.All,
                 qPrintable(QStringLiteral("%1 of %2").arg(growth.Grown).arg(growth.All)));
    }
};

MORLENE_TEST(TestOpening)
#include "test_opening.moc"
