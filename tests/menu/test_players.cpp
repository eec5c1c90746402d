// The players at the menu: the list of them, and how the menu dresses for the one who plays.
#include "menu/menu_player.h"

#include "platform/base/errors.h"
#include "platform/files/files.h"
#include "platform/machine/application.h"
#include "support/registered_tests.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QDir>
#include <QTest>

using namespace platform;

namespace {

constexpr Color Designed = 0x00C0E0FF;

// A person opens the list and takes a name from it.
void ChooseFromTheList(const FormMenu &menu, int index)
{
    auto *box = static_cast<QComboBox *>(menu.Combo1.Widget());
    QTest::mouseClick(box, Qt::LeftButton);
    QTest::keyClick(box->view(), Qt::Key_Home);
    for (int i = 0; i < index; ++i)
        QTest::keyClick(box->view(), Qt::Key_Down);
    QTest::keyClick(box->view(), Qt::Key_Return);
}

// A fixed background and colours that no default has.
void DressUp()
{
    ColoriVari = false;
    ColoreSfondo = 0x00204060;
    ColoreBottoni = 0x00112233;
    ColoreFont = 0x00445566;
    FontCorrente = QStringLiteral("Verdana");
}

// What the pointer is over a control: the program's own hand, or the window's.
bool HasHand(const VisualControl &control)
{
    return control.Widget()->cursor().shape() == Qt::BitmapCursor;
}

} // namespace

class TestPlayers : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // --- The list ---

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

    void theListIsFilledAnewAndNotTwice()
    {
        MenuPlayer player;
        player.Save(QStringLiteral("_predefinito"));
        player.Save(QStringLiteral("anna"));
        FormMenu &menu = player.OpenMenu();
        menu.RecuperaUtenti();
        QCOMPARE(menu.Combo1.ListCount(), 2);
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

    void aPlayersFileThatCannotBeWrittenEndsTheProgramAtTheMenu()
    {
        MenuPlayer player;
        // A folder stands where the file belongs.
        QDir().mkpath(player.Host.Drive.filePath(Settings + QStringLiteral("_predefinito.ini")));
        player.OpenMenu();
        QCOMPARE(player.Host.FatalNumber, static_cast<int>(PathFileAccess));
        QVERIFY(player.Host.FatalText.contains(QStringLiteral("_predefinito")));
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
            for (int column = 0; column < 4; ++column)
                EserciziEseguiti(row, column) = QStringLiteral("x");
        menu.Combo1.SetListIndex(1);
        QCOMPARE(NomeUtente, QStringLiteral("anna"));
        QCOMPARE(NumeroEserciziEseguiti, int16_t{0});
        for (int row = 0; row <= 10; ++row)
            for (int column = 0; column < 4; ++column)
                QCOMPARE(EserciziEseguiti(row, column), QString());
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

    void ofSeveralNamesThatMatchTheLastIsChosen()
    {
        MenuPlayer player;
        TipoCarattere = QStringLiteral("maiuscolo");
        for (const char *name : {"ANNA.ini", "Anna.ini", "anna.ini", "bruno.ini"})
            player.Host.WriteDriveFile(Settings + QString::fromLatin1(name), "x");
        TipoCarattere = QStringLiteral("minuscolo");
        NomeUtente = QStringLiteral("aNNa");
        FileUtente = QStringLiteral("C:\\ImpostazioniProgrammiTesmi\\morlenekvt\\anna.ini");
        const FormMenu &menu = player.OpenMenu();
        QCOMPARE(menu.Combo1.ListCount(), 4);
        QCOMPARE(menu.Combo1.ListIndex(), 2);
        QCOMPARE(NomeUtente, menu.Combo1.List(2));
    }

    void theSamePlayerChosenAgainIsSavedAndReadAndKeepsTheLog()
    {
        MenuPlayer player;
        player.Save(QStringLiteral("_predefinito"));
        player.Save(QStringLiteral("anna"));
        const FormMenu &menu = player.OpenMenu();
        DimensioneFont = 31;
        StringaProfilo = QStringLiteral("  ahead");
        NumeroEserciziEseguiti = 3;
        EserciziEseguiti(1, 0) = QStringLiteral("x");
        player.Host.TakeEvents();
        ChooseFromTheList(menu, 0);
        QVERIFY(player.Host.DriveFile(Settings + QStringLiteral("_predefinito.ini"))
                    .contains("\r\n 31 \r\n"));
        // Read back: blanks ahead of a text are lost on the way.
        QCOMPARE(StringaProfilo, QStringLiteral("ahead"));
        QCOMPARE(EserciziEseguiti(1, 0), QStringLiteral("x"));
        QCOMPARE(NumeroEserciziEseguiti, int16_t{3});
        QCOMPARE(player.Host.TakeEvents().filter(QStringLiteral("Command1")), QStringList());
    }

    void aPersonsChoiceOfAnotherPlayerSavesTheOldOneFirst()
    {
        MenuPlayer player;
        player.Save(QStringLiteral("_predefinito"));
        DimensioneFont = 40;
        player.Save(QStringLiteral("anna"));
        const FormMenu &menu = player.OpenMenu();
        DimensioneFont = 31;
        ChooseFromTheList(menu, 1);
        QCOMPARE(NomeUtente, QStringLiteral("anna"));
        QCOMPARE(DimensioneFont, int16_t{40});
        QVERIFY(player.Host.DriveFile(Settings + QStringLiteral("_predefinito.ini"))
                    .contains("\r\n 31 \r\n"));
        QVERIFY(
            player.Host.DriveFile(Settings + QStringLiteral("anna.ini")).contains("\r\n 40 \r\n"));
    }

    void aSaveThatFailsKeepsThePlayerAndIsTold()
    {
        MenuPlayer player;
        player.Save(QStringLiteral("anna"));
        player.Save(QStringLiteral("bruno"));
        FormMenu &menu = player.OpenMenu();
        QDir().mkpath(player.Host.Drive.filePath(Settings + QStringLiteral("_predefinito.INI")));
        NumeroEserciziEseguiti = 3;
        Guarded([&] { menu.Combo1.SetListIndex(0); });
        QCOMPARE(player.Host.FatalNumber, static_cast<int>(PathFileAccess));
        QCOMPARE(NomeUtente, QStringLiteral("_predefinito"));
        QCOMPARE(NumeroEserciziEseguiti, int16_t{3});
    }

    void aLookUpThatFailsLeavesTheListEmptyAndTheMenuWhole()
    {
#ifdef Q_OS_WIN
        QSKIP("An ordinary user makes no links there");
#endif
        MenuPlayer player;
        ModoInput = 1;
        // The settings' folder as a link, which the file layer does not follow.
        const QString folder = player.Host.Drive.filePath(Settings).chopped(1);
        QVERIFY(QDir(folder).removeRecursively());
        QVERIFY(QFile::link(player.Host.Drive.path(), folder));
        QVERIFY(Skipping([] {
                    DirList(QStringLiteral("C:\\ImpostazioniProgrammiTesmi\\morlenekvt\\*.ini"),
                            LookUp::FilesAndFolders);
                }) != 0);
        const FormMenu &menu = player.OpenMenu();
        QCOMPARE(player.Host.FatalNumber, 0);
        QCOMPARE(menu.Combo1.ListCount(), 0);
        QVERIFY(!menu.Combo1.Visible());
        QCOMPARE(Lit(menu), QList<int>{0});
    }

    // --- The dress ---

    void theBackgroundIsTheFixedOneOrTheDesigned()
    {
        MenuPlayer player;
        ColoreSfondo = 0x00204060;
        ColoriVari = true;
        QCOMPARE(player.OpenMenu().BackColor(), Designed);
        DropForms();
        ColoriVari = false;
        const FormMenu &menu = player.OpenMenu();
        QCOMPARE(menu.BackColor(), Color{0x00204060});
        // As painted, not only as told.
        QCOMPARE(menu.Client()->grab().toImage().pixelColor(2, 2), QColor(0x60, 0x40, 0x20));
    }

    void aFixedBackgroundStaysUntilTheMenuIsLoadedAnew()
    {
        MenuPlayer player;
        ColoriVari = true;
        player.Save(QStringLiteral("anna"));
        ColoriVari = false;
        ColoreSfondo = 0x00204060;
        player.Save(QStringLiteral("_predefinito"));
        FormMenu &menu = player.OpenMenu();
        menu.Combo1.SetListIndex(1);
        QVERIFY(ColoriVari);
        QCOMPARE(menu.BackColor(), Color{0x00204060});
        DropForms();
        QCOMPARE(player.OpenMenu().BackColor(), Designed);
    }

    void itemsStandOutOnlyWhereTheyAreScanned_data()
    {
        RowsOfModes({0, 1, 2, 3});
    }
    void itemsStandOutOnlyWhereTheyAreScanned()
    {
        QFETCH(int, mode);
        MenuPlayer player;
        DressUp();
        ModoInput = Integer16(mode);
        const FormMenu &menu = player.OpenMenu();
        const QList<int> lit = Lit(menu);
        for (const Label &item : menu.Command1)
            if (!lit.contains(item.Index()))
                QCOMPARE(item.BackColor(), Color{mode == 0 ? 0x00204060U : 0x00112233U});
        QCOMPARE(lit, mode == 1 || mode == 3 ? QList<int>{0} : QList<int>());
    }

    void captionsTakeThePlayersFontAndColour()
    {
        MenuPlayer player;
        DressUp();
        const FormMenu &menu = player.OpenMenu();
        for (const Label &item : menu.Command1) {
            QCOMPARE(item.Font().Name, QStringLiteral("Verdana"));
            QCOMPARE(item.ForeColor(), Color{0x00445566});
            QVERIFY(item.Font().Bold);
        }
    }

    void theHandStandsOverWhatTheMouseMayClick_data()
    {
        QTest::addColumn<int>("mode");
        QTest::addColumn<bool>("ofTheSystem");
        QTest::addColumn<bool>("overCaptions");
        QTest::addColumn<bool>("overPictures");
        QTest::newRow("mouse") << 0 << false << true << true;
        QTest::newRow("mouse, the system's pointer") << 0 << true << false << false;
        for (const int mode : {1, 2, 3}) {
            QTest::addRow("mode %d", mode) << mode << false << false << true;
            QTest::addRow("mode %d, the system's pointer", mode) << mode << true << false << false;
        }
    }

    void theHandStandsOverWhatTheMouseMayClick()
    {
        QFETCH(int, mode);
        QFETCH(bool, ofTheSystem);
        QFETCH(bool, overCaptions);
        QFETCH(bool, overPictures);
        MenuPlayer player;
        ModoInput = Integer16(mode);
        DisabilitaMousePersonalizzato = ofTheSystem;
        const FormMenu &menu = player.OpenMenu();
        for (const Label &item : menu.Command1)
            QCOMPARE(HasHand(item), overCaptions);
        for (const Image &picture : menu.Image1)
            QCOMPARE(HasHand(picture), overPictures);
    }

    void theHandComesBackWithAPlayerWhoHasAMouse()
    {
        MenuPlayer player;
        ModoInput = 1;
        DisabilitaMousePersonalizzato = true;
        player.Save(QStringLiteral("_predefinito"));
        ModoInput = 0;
        DisabilitaMousePersonalizzato = false;
        player.Save(QStringLiteral("anna"));
        ModoInput = 1;
        DisabilitaMousePersonalizzato = true;
        FormMenu &menu = player.OpenMenu();
        QVERIFY(!HasHand(menu.Command1(3)));
        menu.Combo1.SetListIndex(1);
        QVERIFY(HasHand(menu.Command1(3)));
        QVERIFY(HasHand(menu.Image1(3)));
    }

    void theBoxThatTakesTheKeyboardIsNotSeen_data()
    {
        RowsOfModes({0, 1, 2, 3});
    }
    void theBoxThatTakesTheKeyboardIsNotSeen()
    {
        QFETCH(int, mode);
        MenuPlayer player;
        DressUp();
        ModoInput = Integer16(mode);
        const FormMenu &menu = player.OpenMenu();
        QCOMPARE(menu.PictureScansioneManuale.Visible(), mode == 1 || mode == 3);
        QCOMPARE(menu.PictureScansioneAutomatica.Visible(), mode == 2);
        QCOMPARE(menu.Timer1.Enabled(), mode != 0);
        QCOMPARE(menu.Timer1.Interval(), mode == 2 ? 1000 : 100);
        // Whoever has a mouse has no light that stands somewhere; the place is that of the start.
        if (mode == 0)
            QCOMPARE(menu.PosizioneScansione, int16_t{1});
        if (mode == 1 || mode == 3)
            QCOMPARE(menu.PictureScansioneManuale.BackColor(), Color{0x00204060});
        if (mode == 2)
            QCOMPARE(menu.PictureScansioneAutomatica.BackColor(), Color{0x00204060});
    }

    void aPlayerWithAnotherModeTakesEffectAtOnce()
    {
        MenuPlayer player;
        for (const int mode : {2, 0, 3}) {
            ModoInput = Integer16(mode);
            player.Save(QStringLiteral("modo%1").arg(mode));
        }
        ModoInput = 1;
        player.Save(QStringLiteral("_predefinito"));
        FormMenu &menu = player.OpenMenu();
        QVERIFY(menu.PictureScansioneManuale.Visible());
        // In the order of their names, the default one first.
        menu.Combo1.SetListIndex(1);
        QCOMPARE(ModoInput, int16_t{0});
        QVERIFY(!menu.PictureScansioneManuale.Visible());
        QVERIFY(!menu.Timer1.Enabled());
        QCOMPARE(Lit(menu), QList<int>());
        menu.Combo1.SetListIndex(2);
        QCOMPARE(ModoInput, int16_t{2});
        QVERIFY(menu.PictureScansioneAutomatica.Visible());
        QCOMPARE(menu.Timer1.Interval(), 1000);
        player.Host.Advance(1000);
        QCOMPARE(Lit(menu), QList<int>{1});
        menu.Combo1.SetListIndex(3);
        QCOMPARE(ModoInput, int16_t{3});
        QVERIFY(menu.PictureScansioneManuale.Visible());
        QVERIFY(!menu.PictureScansioneAutomatica.Visible());
        QCOMPARE(Lit(menu), QList<int>{0});
        // The pull of the keyboard keeps the former time.
        QCOMPARE(menu.Timer1.Interval(), 1000);
    }

    void oneSwitchLeavesTheBoxOfTheKeysWhereItIs()
    {
        MenuPlayer player;
        ModoInput = 2;
        player.Save(QStringLiteral("anna"));
        ModoInput = 1;
        player.Save(QStringLiteral("_predefinito"));
        FormMenu &menu = player.OpenMenu();
        menu.Combo1.SetListIndex(1);
        QVERIFY(menu.PictureScansioneManuale.Visible());
        QVERIFY(menu.PictureScansioneAutomatica.Visible());
        QCOMPARE(Lit(menu), QList<int>());
        player.Host.Advance(1000);
        QVERIFY(menu.PictureScansioneAutomatica.HasFocus());
        QCOMPARE(Lit(menu), QList<int>{1});
    }
};

MORLENE_TEST(TestPlayers)
#include "test_players.moc"
