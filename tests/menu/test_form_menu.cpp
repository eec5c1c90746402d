// The menu: its items, the light, scanning, players and languages, and the two ways it ends.
#include "menu/form_menu.h"

#include "exercises/exercise_table.h"
#include "exercises/form_es1.h"
#include "language/language.h"
#include "platform/application.h"
#include "support/cls_resize.h"
#include "support/exercise_fixture.h"
#include "support/registered_tests.h"

#include <QDir>
#include <QFile>
#include <QTest>

#include <array>
#include <utility>

using namespace platform;

namespace {

const QString Settings = QStringLiteral("ImpostazioniProgrammiTesmi/morlenekvt/");

// A player at the menu.
class MenuPlayer : public Player {
public:
    MenuPlayer()
    {
        RegistraEsercizi();
        QDir().mkpath(Host.Drive.filePath(Settings));
    }

    FormMenu &OpenMenu()
    {
        auto *menu = new FormMenu;
        menu->Show();
        QCoreApplication::processEvents();
        Host.TakeEvents();
        return *menu;
    }

    // Saves the settings in force as the profile of a player.
    void Save(const QString &name)
    {
        const QString file = FileUtente;
        FileUtente = QStringLiteral("C:\\ImpostazioniProgrammiTesmi\\morlenekvt\\") + name +
                     QStringLiteral(".ini");
        SalvaImpostazioni();
        FileUtente = file;
    }
};

QList<int> Lit(const FormMenu &menu)
{
    QList<int> lit;
    for (Label &item : menu.Command1)
        if (item.BackColor() == ToColor(ColorePulsantiSelezionati))
            lit << item.Index();
    return lit;
}

} // namespace

class TestFormMenu : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theMenuClearsTheScoreAndFillsTheScreen()
    {
        MenuPlayer player;
        Esatti = 4;
        Errati = 4;
        const FormMenu &menu = player.OpenMenu();
        QCOMPARE(Esatti, 0);
        QCOMPARE(Errati, int16_t{0});
        QCOMPARE(menu.Width(), ScreenWidth());
        QCOMPARE(menu.Height(), ScreenHeight());
        QCOMPARE(menu.BackColor(), Color{0x00C0E0FF});
        QVERIFY(!menu.Timer1.Enabled());
    }

    void captionsAreComposedAndWhollySmallUnlessTheyAreCapitals()
    {
        MenuPlayer player;
        {
            const FormMenu &menu = player.OpenMenu();
            QCOMPARE(menu.Command1(0).Caption(), QStringLiteral("\nvero o falso"));
            QCOMPARE(menu.Command1(2).Caption(),
                     (MLSTesto(QStringLiteral("0059")) + QLatin1Char('\n') +
                      MLSTesto(QStringLiteral("0060")) + QStringLiteral("\n1°"))
                         .toLower());
            QCOMPARE(menu.Command1(6).Caption(),
                     (QLatin1Char('\n') + MLSTesto(QStringLiteral("0063")) + QLatin1Char('\n') +
                      MLSTesto(QStringLiteral("0064")))
                         .toLower());
        }
        DropForms();
        TipoCarattere = QStringLiteral("maiuscolo");
        QCOMPARE(player.OpenMenu().Command1(0).Caption(), QStringLiteral("\nVERO O FALSO"));
        DropForms();
        TipoCarattere = QStringLiteral("corsivo");
        QCOMPARE(player.OpenMenu().Command1(0).Caption(), QStringLiteral("\nvero o falso"));
    }

    void theSizeOfTheCaptionsFollowsTheWidthOfAnItem()
    {
        MenuPlayer player;
        DimensioneFont = 72; // has no influence here
        double last = 0;
        for (const ScreenSize size :
             {ScreenSize{1024, 768}, {1366, 768}, {1920, 1080}, {3840, 2160}}) {
            player.Host.ScreenSizeNow = size;
            const FormMenu &menu = player.OpenMenu();
            const double points = menu.Command1(0).Font().Size;
            QVERIFY(points >= 14);
            QVERIFY(points >= last);
            QVERIFY(menu.LabelDimensionaFont.Width() >= menu.Command1(0).Width());
            QCOMPARE(menu.Combo1.Font().Size, std::max(14.0, points - 10));
            last = points;
            DropForms();
        }
        QVERIFY(last > 20);
    }

    void aClickStartsTheExerciseWithItsTitleInTheLog_data()
    {
        QTest::addColumn<QString>("window");
        QTest::addColumn<QString>("title");
        // In the order of the items.
        const std::array<std::pair<const char *, const char *>, 8> exercises = {
            {{"FormEs1", "Vero o falso"},
             {"FormEs2", "Uguale - diverso"},
             {"FormEs8", "Uguali - 1°"},
             {"FormEs3", "Uguali - 2°"},
             {"FormEs4", "Colora la morlena"},
             {"FormEs5", "Insiemi"},
             {"FormEs6", "Trova gli intrusi"},
             {"FormEs7", "Indovina chi?"}}};
        int item = 0;
        for (const auto &[window, title] : exercises)
            QTest::addRow("%d", item++) << QString::fromLatin1(window) << QString::fromUtf8(title);
    }

    void aClickStartsTheExerciseWithItsTitleInTheLog()
    {
        QFETCH(QString, window);
        QFETCH(QString, title);
        const int item = QByteArray(QTest::currentDataTag()).toInt();
        for (const bool picture : {false, true}) {
            MenuPlayer player;
            player.Host.Seed(1);
            FormMenu &menu = player.OpenMenu();
            if (picture)
                ClickOn(menu.Image1(item));
            else
                ClickOn(menu.Command1(item));
            QCOMPARE(NumeroEserciziEseguiti, int16_t{1});
            QCOMPARE(EserciziEseguiti(1, 0), title);
            QVERIFY(Form::Find(window) != nullptr);
            QVERIFY(Form::Find(QStringLiteral("FormMenu")) == nullptr);
            QVERIFY(!player.Host.Ended);
        }
    }

    void theDocumentationIsOpenedAndTheMenuStays()
    {
        MenuPlayer player;
        FormMenu &menu = player.OpenMenu();
        QVERIFY(menu.mnuDocum.Enabled());
        menu.mnuDocum.OnClick();
        QCOMPARE(player.Host.OpenedDocuments,
                 QStringList{player.Host.Application + QStringLiteral("morlenekvt.pdf")});
        QCOMPARE(Form::Find(QStringLiteral("FormMenu")), &menu);
    }

    void oneRowStaysEmptyBetweenTwoExercises()
    {
        MenuPlayer player;
        player.Host.Seed(1);
        player.OpenMenu().Command1.OnClick(0);
        dynamic_cast<FormEs1 &>(*Form::Find(QStringLiteral("FormEs1"))).mnuEsci.OnClick();
        dynamic_cast<FormMenu &>(*Form::Find(QStringLiteral("FormMenu"))).Command1.OnClick(0);
        QCOMPARE(NumeroEserciziEseguiti, int16_t{3});
        QCOMPARE(EserciziEseguiti(1, 0), QStringLiteral("Vero o falso"));
        QCOMPARE(EserciziEseguiti(1, 1), QStringLiteral("1"));
        QCOMPARE(EserciziEseguiti(2, 0), QString());
        QCOMPARE(EserciziEseguiti(3, 0), QStringLiteral("Vero o falso"));
    }

    void theExitItemSavesAndEnds()
    {
        MenuPlayer player;
        FormMenu &menu = player.OpenMenu();
        QVERIFY(Ridimensionatore != nullptr);
        ClickOn(menu.Command1(8));
        QVERIFY(player.Host.Ended);
        QCOMPARE(player.Host.DriveFile(Settings + QStringLiteral("_predefinito.INI")).count('\n'),
                 43);
        QVERIFY(Ridimensionatore == nullptr);
    }

    void theWindowsOwnEndSavesNothing()
    {
        MenuPlayer player;
        FormMenu &menu = player.OpenMenu();
        menu.Window()->close();
        QVERIFY(player.Host.Ended);
        QVERIFY(!player.Host.DriveHas(Settings + QStringLiteral("_predefinito.INI")));
    }

    void theFiveHundredAndFirstStartIsFatal()
    {
        MenuPlayer player;
        player.Host.Seed(1);
        FormMenu &menu = player.OpenMenu();
        NumeroEserciziEseguiti = 499;
        ClickOn(menu.Command1(0));
        QCOMPARE(NumeroEserciziEseguiti, int16_t{500});
        QCOMPARE(player.Host.FatalNumber, 0);
        DropForms();
        FormMenu &again = player.OpenMenu();
        // As an event does, but not through the toolkit, which loses a little when it is thrown
        // through; the program ends then.
        Guarded([&] { again.Command1.OnClick(0); });
        QCOMPARE(player.Host.FatalNumber, static_cast<int>(SubscriptOutOfRange));
    }

    void theLightFollowsThePointer()
    {
        MenuPlayer player;
        FormMenu &menu = player.OpenMenu();
        MoveOver(menu.Image1(8));
        QCOMPARE(Lit(menu), QList<int>{8});
        MoveOver(menu.Command1(0));
        QCOMPARE(Lit(menu), QList<int>{0});
        player.Host.TakeEvents();
        menu.Command1.OnMouseMove(0);
        QCOMPARE(player.Host.TakeEvents(), QStringList());
        menu.OnMouseMove();
        QCOMPARE(Lit(menu), QList<int>());
    }

    // --- Scanning ---

    void modeOneLightsTheFirstItemAtOnceAndGoesRound()
    {
        MenuPlayer player;
        ModoInput = 1;
        const FormMenu &menu = player.OpenMenu();
        QCOMPARE(Lit(menu), QList<int>{0});
        for (int step = 1; step <= 9; ++step) {
            PressAndRelease(menu.PictureScansioneManuale, Qt::Key_Space);
            QCOMPARE(Lit(menu), QList<int>{step % 9});
        }
        PressAndRelease(menu.PictureScansioneManuale, Qt::Key_Right);
        QCOMPARE(Lit(menu), QList<int>{0});
    }

    void modeThreeWalksTheOneLineOfItems()
    {
        MenuPlayer player;
        ModoInput = 3;
        FormMenu &menu = player.OpenMenu();
        QCOMPARE(Lit(menu), QList<int>{0});
        PressAndRelease(menu.PictureScansioneManuale, Qt::Key_Left);
        QCOMPARE(Lit(menu), QList<int>{8});
        PressAndRelease(menu.PictureScansioneManuale, Qt::Key_Down);
        for (int step = 1; step <= 3; ++step)
            PressAndRelease(menu.PictureScansioneManuale, Qt::Key_Down);
        QCOMPARE(Lit(menu), QList<int>{3});
        PressAndRelease(menu.PictureScansioneManuale, Qt::Key_Down);
        QCOMPARE(Lit(menu), QList<int>{4});
        PressAndRelease(menu.PictureScansioneManuale, Qt::Key_Up);
        QCOMPARE(Lit(menu), QList<int>{3});
        PressAndRelease(menu.PictureScansioneManuale, Qt::Key_Space);
        QCOMPARE(Lit(menu), QList<int>{3});
        menu.PosizioneScansione = 8;
        PressAndRelease(menu.PictureScansioneManuale, Qt::Key_Return);
        QVERIFY(player.Host.Ended);
        QVERIFY(player.Host.DriveHas(Settings + QStringLiteral("_predefinito.INI")));
    }

    void modeTwoLightsItemOneFirstAndChoosesOnTheRelease()
    {
        MenuPlayer player;
        player.Host.Seed(1);
        ModoInput = 2;
        VelocitaScansione = 1;
        const FormMenu &menu = player.OpenMenu();
        QCOMPARE(Lit(menu), QList<int>());
        player.Host.Advance(249);
        QCOMPARE(Lit(menu), QList<int>());
        player.Host.Advance(1);
        QCOMPARE(Lit(menu), QList<int>{1});
        player.Host.Advance(250 * 8);
        QCOMPARE(Lit(menu), QList<int>{0});
        QTest::keyPress(menu.PictureScansioneAutomatica.Widget(), Qt::Key_Space);
        QVERIFY(Form::Find(QStringLiteral("FormEs1")) == nullptr);
        // A held switch does not stop the menu's timer.
        player.Host.Advance(250 * 9);
        QCOMPARE(Lit(menu), QList<int>{0});
        QTest::keyRelease(menu.PictureScansioneAutomatica.Widget(), Qt::Key_Space);
        QVERIFY(Form::Find(QStringLiteral("FormEs1")) != nullptr);
    }

    void withoutAMouseClicksOnItemsDoNothing()
    {
        MenuPlayer player;
        ModoInput = 1;
        const FormMenu &menu = player.OpenMenu();
        ClickOn(menu.Command1(0));
        MoveOver(menu.Command1(4));
        QCOMPARE(NumeroEserciziEseguiti, int16_t{0});
        QCOMPARE(Lit(menu), QList<int>{0});
    }

    void withAMouseKeysDoNothing()
    {
        MenuPlayer player;
        const FormMenu &menu = player.OpenMenu();
        PressAndRelease(menu.PictureScansioneManuale, Qt::Key_Space);
        PressAndRelease(menu.PictureScansioneAutomatica, Qt::Key_Space);
        PressAndRelease(menu.PictureScansioneManuale, Qt::Key_Return);
        QCOMPARE(Lit(menu), QList<int>());
        QCOMPARE(NumeroEserciziEseguiti, int16_t{0});
    }

    // --- Players ---

    void theListShowsOnlyWhenThereIsAChoice()
    {
        MenuPlayer player;
        QVERIFY(!player.OpenMenu().Combo1.Visible());
        DropForms();
        player.Save(QStringLiteral("_predefinito"));
        const FormMenu &one = player.OpenMenu();
        QCOMPARE(one.Combo1.ListCount(), 1);
        QVERIFY(!one.Combo1.Visible());
        DropForms();
        player.Save(QStringLiteral("anna"));
        const FormMenu &two = player.OpenMenu();
        QVERIFY(two.Combo1.Visible());
        QCOMPARE(two.Combo1.Text(), QStringLiteral("_predefinito"));
    }

    void choosingByCodeSavesAndReadsTheProfileBack()
    {
        MenuPlayer player;
        player.Save(QStringLiteral("_predefinito"));
        ModoInput = 0;
        DimensioneFont = 31;
        NumeroEserciziEseguiti = 3;
        EserciziEseguiti(1, 0) = QStringLiteral("x");
        player.OpenMenu();
        QVERIFY(player.Host.DriveFile(Settings + QStringLiteral("_predefinito.ini"))
                    .contains("\r\n 31 \r\n"));
        QCOMPARE(EserciziEseguiti(1, 0), QStringLiteral("x"));
        QCOMPARE(NumeroEserciziEseguiti, int16_t{3});
    }

    void anotherPlayerDropsTheLogAndDressesTheMenu()
    {
        MenuPlayer player;
        player.Save(QStringLiteral("_predefinito"));
        ModoInput = 2;
        SalvaUtente = true;
        player.Save(QStringLiteral("anna"));
        ModoInput = 0;
        SalvaUtente = false;
        FormMenu &menu = player.OpenMenu();
        QVERIFY(!menu.mnuEserciziEseguiti.Visible());
        NumeroEserciziEseguiti = 10;
        for (int row = 0; row <= 10; ++row)
            EserciziEseguiti(row, 0) = QStringLiteral("x");
        menu.Combo1.SetListIndex(1);
        QCOMPARE(NomeUtente, QStringLiteral("anna"));
        QCOMPARE(NumeroEserciziEseguiti, int16_t{0});
        for (int row = 0; row <= 10; ++row)
            QCOMPARE(EserciziEseguiti(row, 0), QString());
        QCOMPARE(ModoInput, int16_t{2});
        QVERIFY(menu.Timer1.Enabled());
        QVERIFY(menu.mnuEserciziEseguiti.Visible());
    }

    void capitalsShowNamesInCapitalsAndStillFindTheFile()
    {
        MenuPlayer player;
        TipoCarattere = QStringLiteral("maiuscolo");
        player.Save(QStringLiteral("_predefinito"));
        player.Save(QStringLiteral("anna"));
        FormMenu &menu = player.OpenMenu();
        QCOMPARE(menu.Combo1.List(1), QStringLiteral("ANNA"));
        menu.Combo1.SetListIndex(1);
        QCOMPARE(NomeUtente, QStringLiteral("ANNA"));
        QCOMPARE(TipoCarattere, QStringLiteral("maiuscolo"));
        menu.Combo1.SetListIndex(0);
        // No second file that differs only in case.
        QCOMPARE(QDir(player.Host.Drive.filePath(Settings)).entryList(QDir::Files),
                 QStringList({QStringLiteral("_predefinito.ini"), QStringLiteral("anna.ini")}));
    }

    void aFolderThatEndsInIniIsListedLikeAPlayer()
    {
        MenuPlayer player;
        player.Save(QStringLiteral("_predefinito"));
        QDir().mkpath(player.Host.Drive.filePath(Settings + QStringLiteral("zoo.ini")));
        QCOMPARE(player.OpenMenu().Combo1.ListCount(), 2);
    }

    // --- Languages ---

    void aLanguageChosenInTheMenuComesAtOnceButForWhatWasComposed()
    {
        MenuPlayer player;
        QTemporaryDir application;
        QDir().mkpath(application.filePath(QStringLiteral("lngmorlene")));
        const auto write = [&](const QString &name, const QByteArray &content) {
            QFile file(application.filePath(QStringLiteral("lngmorlene/") + name));
            QVERIFY(file.open(QIODevice::WriteOnly));
            file.write(content);
        };
        write(QStringLiteral("uno.lng"), "[Strings]\r\n0004=Giusti\r\n[FormMenu]\r\n"
                                         "FormMenu.Caption=Uno\r\nCommand1(0).Caption=Alfa\r\n");
        write(QStringLiteral("due.lng"), "[FormMenu]\r\nCommand1(0).Caption=Beta\r\n"
                                         "mnuInfo.Caption=Aiuto\r\n");
        write(QStringLiteral("LangSetting.ini"), "[Language]\r\nCurrentLanguage=uno\r\n");
        player.Host.Application = application.path() + QLatin1Char('/');
        LinguaCorrente.clear();
        FormMenu &menu = player.OpenMenu();
        QCOMPARE(menu.mnuLanguage.Count(), 2);
        QCOMPARE(menu.mnuLanguage(0).Caption(), QStringLiteral("due"));
        QVERIFY(!menu.mnuLanguage(0).Checked());
        QVERIFY(menu.mnuLanguage(1).Checked());
        QCOMPARE(menu.Command1(0).Caption(), QStringLiteral("\nalfa"));
        menu.mnuLanguage.OnClick(0);
        QCOMPARE(menu.Command1(0).Caption(), QStringLiteral("Beta"));
        QCOMPARE(menu.mnuInfo.Caption(), QStringLiteral("Aiuto"));
        QCOMPARE(menu.Caption(), QString());
        QVERIFY(menu.mnuLanguage(0).Checked());
        QVERIFY(!menu.mnuLanguage(1).Checked());
        QCOMPARE(LinguaCorrente, QStringLiteral("due"));
        QFile setting(application.filePath(QStringLiteral("lngmorlene/LangSetting.ini")));
        QVERIFY(setting.open(QIODevice::ReadOnly));
        QVERIFY(setting.readAll().contains("CurrentLanguage=due"));
        QCOMPARE(EtichettaEsatti, QStringLiteral(" Esatti"));
    }

    void withoutAnyLanguageTheMenuSaysSoAndGoesOn()
    {
        MenuPlayer player;
        QTemporaryDir application;
        player.Host.Application = application.path() + QLatin1Char('/');
        player.Host.ExpectBox(QStringLiteral("Non è presente alcun file di linguaggio!"));
        const FormMenu &menu = player.OpenMenu();
        QCOMPARE(menu.mnuLanguage.Count(), 1);
        QVERIFY(!menu.mnuLanguage(0).Checked());
        QCOMPARE(menu.Command1(1).Caption(), QStringLiteral("\nuguale - diverso"));
    }
};

MORLENE_TEST(TestFormMenu)
#include "test_form_menu.moc"
