// The about box: its lines, its document, and the way back to the menu.
#include "support/windows/form_info.h"

#include "language/language.h"
#include "support/application_folder.h"
#include "support/exercise_fixture.h"
#include "support/registered_tests.h"

#include <QTest>

using namespace platform;

class TestFormInfo : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void itNamesWhoMadeItTheVersionAndTheLanguage()
    {
        Player player;
        const auto &window = player.Open<FormInfo>();
        QVERIFY(window.Label1.Caption().startsWith(QStringLiteral("Software di")));
        QVERIFY(window.Label2.Caption().contains(QStringLiteral("1.0.0")));
        QVERIFY(!window.Label3.Caption().isEmpty());
        QStringList lines;
        for (const char *key : {"9996", "9997", "9998", "9999"})
            lines << MLSTesto(QString::fromLatin1(key));
        QCOMPARE(window.Label4.Caption(), lines.join(QLatin1Char('\n')));
        QCOMPARE(window.Left(), 0.0);
        QCOMPARE(window.Top(), 0.0);
        QCOMPARE(window.Width(), ScreenWidth());
        QCOMPARE(window.Height(), ScreenHeight());
    }

    void aLanguageWithoutItsLinesLeavesThemOut()
    {
        Player player;
        const ApplicationFolder folder(player.Host);
        folder.WriteLanguage("[Strings]\r\n9997=uno\r\n9999=due\r\n");
        LinguaCorrente = QStringLiteral("prova");
        QCOMPARE(player.Open<FormInfo>().Label4.Caption(), QStringLiteral("uno\ndue"));
        DropForms();
        folder.WriteLanguage("[Strings]\r\n0001=x\r\n");
        QCOMPARE(player.Open<FormInfo>().Label4.Caption(), QString());
    }

    void itsPictureOpensTheDocument()
    {
        Player player;
        const auto &window = player.Open<FormInfo>();
        ClickOn(window.Image1);
        QCOMPARE(player.Host.OpenedDocuments,
                 QStringList{player.Host.Application + QStringLiteral("documento.pdf")});
        QVERIFY(Form::Find(QStringLiteral("FormInfo")) != nullptr);
    }

    void closingLeadsBackToTheMenu()
    {
        Player player;
        const auto &window = player.Open<FormInfo>();
        ClickOn(window.Command1);
        QVERIFY(Form::Find(QStringLiteral("FormMenu")) != nullptr);
        QVERIFY(Form::Find(QStringLiteral("FormInfo")) == nullptr);
        QVERIFY(!player.Host.Ended);
    }
};

MORLENE_TEST(TestFormInfo)
#include "test_form_info.moc"
