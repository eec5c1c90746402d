// What every window does when it is loaded: it takes the language's texts, and a resizer of its own
// in the place of the last window's.
#include "core/shared_state.h"
#include "language/language.h"
#include "printing/frm_stampa.h"
#include "printing/print_fields.h"
#include "printing/stampa_fpb.h"
#include "support/application_folder.h"
#include "support/cls_resize.h"
#include "support/exercise_fixture.h"
#include "support/registered_tests.h"
#include "support/windows.h"

#include <QTest>

using namespace platform;

class TestLoads : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aWindowThatLoadsTakesTheLanguageAndAResizerOfItsOwn_data()
    {
        QTest::addColumn<QString>("name");
        for (const QString &name : WindowNames())
            if (name != QStringLiteral("frmStampa"))
                QTest::newRow(qPrintable(name)) << name;
    }
    void aWindowThatLoadsTakesTheLanguageAndAResizerOfItsOwn()
    {
        QFETCH(QString, name);
        Player player;
        player.Host.Seed(1);
        const ApplicationFolder folder(player.Host);
        folder.WriteLanguage(
            QStringLiteral("[%1]\r\n%1.Caption=Titolo\r\n%1.Tag=segno\r\n").arg(name).toLatin1());
        LeggiLinguaCorrente();
        const auto before = std::make_shared<clsResize>();
        Ridimensionatore = before;
        Form *form = MakeWindow(name).release();
        form->Show();
        QCOMPARE(form->Caption(), QStringLiteral("Titolo"));
        QCOMPARE(form->Tag(), QStringLiteral("segno"));
        QVERIFY(Ridimensionatore != before);
        QVERIFY(Ridimensionatore->SourceForm() == form);
    }

    // It comes without a load of its own.
    void theDialogOfAPrintTakesTheLanguage()
    {
        Player player;
        const ApplicationFolder folder(player.Host);
        folder.WriteLanguage("[frmStampa]\r\ncmdStampa.Caption=Imprimer\r\n");
        LeggiLinguaCorrente();
        AzzeraStampa();
        auto *form = new Form("Finestra", 6000, 4500);
        form->Show();
        player.Host.ExpectModal([](Form &dialog) {
            QCOMPARE(dynamic_cast<FrmStampa &>(dialog).cmdStampa.Caption(),
                     QStringLiteral("Imprimer"));
            dialog.Unload();
        });
        StampaFPB({.Oggetto = form, .X = 10, .Y = 10, .W = 100, .H = 100, .Orientamento = 1});
        AzzeraStampa();
    }
};

MORLENE_TEST(TestLoads)
#include "test_loads.moc"
