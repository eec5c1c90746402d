// The page of the players: the default one, one of those there, a new one, and names that cannot be
// files.
#include "configuration/adult.h"
#include "platform/base/errors.h"
#include "platform/machine/application.h"
#include "support/registered_tests.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTest>

#ifndef Q_OS_WIN
#include "support/as_user.h"
#endif

using namespace platform;

class TestConfigPlayers : public QObject {
    Q_OBJECT

private Q_SLOTS:
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

    void onlyWhatBelongsToTheChoiceOfAPlayerShows()
    {
        Adult adult;
        const FormConfigura &window = adult.OpenWindow();
        const auto shown = [&] {
            return QList<bool>{window.ListModificaUtente.Visible(),
                               window.TextNuovoUtente.Visible()};
        };
        QCOMPARE(shown(), (QList<bool>{false, false}));
        ClickOn(window.OptionUtente(2));
        QTest::keyClicks(window.TextNuovoUtente.Widget(), QStringLiteral("Li"));
        QCOMPARE(shown(), (QList<bool>{false, true}));
        ClickOn(window.OptionUtente(1));
        QCOMPARE(shown(), (QList<bool>{true, false}));
        ClickOn(window.OptionUtente(0));
        QCOMPARE(shown(), (QList<bool>{false, false}));
        // The field waits for another name.
        ClickOn(window.OptionUtente(2));
        QCOMPARE(window.TextNuovoUtente.Text(), QString());
        QCOMPARE(NomeUtente, QStringLiteral("_predefinito"));
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

    // The settings' folder may be entered and written, and not be looked through.
    void aLookUpThatFailsLeavesTheListEmpty()
    {
#ifdef Q_OS_WIN
        QSKIP("Rights are others there");
#else
        Adult adult;
        adult.Save(QStringLiteral("anna"));
        const FormConfigura &window = adult.OpenWindow();
        ClickOn(window.OptionUtente(1));
        QCOMPARE(window.ListModificaUtente.ListCount(), 1);
        const QString folder = adult.Host.Drive.filePath(Settings);
        for (const QString &path : {adult.Host.Drive.path(), QFileInfo(folder.chopped(1)).path()})
            QFile::setPermissions(path, QFile::Permissions(0x7755));
        QFile::setPermissions(folder, QFile::Permissions(0x3333));
        for (const char *name : {"anna.ini", "_predefinito.INI"})
            QFile::setPermissions(folder + QString::fromLatin1(name), QFile::Permissions(0x6666));
        const QByteArray said = AsOrdinaryUser([&]() -> QByteArray {
            HOLDS(QDir(folder).entryList(QDir::Files).isEmpty());
            ClickOn(window.OptionUtente(1));
            HOLDS(adult.Host.FatalNumber == 0);
            HOLDS(window.ListModificaUtente.ListCount() == 0);
            return {};
        });
        QCOMPARE(said, QByteArray());
        QFile::setPermissions(folder, QFile::Permissions(0x7755));
#endif
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
};

MORLENE_TEST(TestConfigPlayers)
#include "test_config_players.moc"
