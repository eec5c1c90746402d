// From the start of the process to the splash: what is made on the machine, and in which order.
#include "core/start.h"

#include "core/palette.h"
#include "core/profile.h"
#include "core/shared_state.h"
#include "core/windows.h"
#include "language/language.h"
#include "platform/base/errors.h"
#include "platform/controls/form.h"
#include "platform/machine/application.h"
#include "support/application_folder.h"
#include "support/registered_tests.h"
#include "support/scripted_host.h"

#include <QDirIterator>
#include <QTest>

#include <memory>

using namespace platform;

namespace {

const QString Root = QStringLiteral("ImpostazioniProgrammiTesmi");
const QString Own = QStringLiteral("ImpostazioniProgrammiTesmi/morlenekvt");
const QString Data = QStringLiteral("ImpostazioniProgrammiTesmi/morlenekvt/dati");
const QString Readme = QStringLiteral("ImpostazioniProgrammiTesmi/leggimi.txt");
const QString FontPath = QStringLiteral("windows/fonts/indis1.ttf");

const QString FontBox =
    QStringLiteral("Font installato\n ----------------------- \nFont prodotto da Rinaldo Torvesi\n"
                   "Playwrite Italia Tradizionale, di TypeTogether "
                   "(github.com/TypeTogether/Playwrite), licenza SIL Open Font "
                   "License 1.1");

class Splash : public Form {
public:
    Splash() : Form("FormAvvio", 3000, 3000) { host().Changed(QStringLiteral("FormAvvio")); }
};

QByteArray Language()
{
    QByteArray content = "[Strings]\r\n0001=Gia' in esecuzione\r\n0004=Esatti\r\n0005=Errati\r\n"
                         "0006=Font installato\r\n0041=profilo\r\n0105=Livello\r\n";
    for (int key = 7; key <= 40; ++key)
        content += "00" + QByteArray::number(key).rightJustified(2, '0') + "=t" +
                   QByteArray::number(key) + "\r\n";
    return content;
}

} // namespace

class TestStart : public QObject {
    Q_OBJECT
private:
    std::unique_ptr<ScriptedHost> m_host;
    std::unique_ptr<ApplicationFolder> m_folder;

    QStringList OnTheDrive() const
    {
        QStringList names;
        QDirIterator all(m_host->Drive.path(),
                         QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden,
                         QDirIterator::Subdirectories);
        while (all.hasNext())
            names << QDir(m_host->Drive.path()).relativeFilePath(all.next());
        names.sort();
        return names;
    }
    QStringList Boxes() const { return m_host->Events.filter(QStringLiteral("box ")); }
    void MakeFolder(const QString &name) const { QVERIFY(QDir(m_host->Drive.path()).mkpath(name)); }

private Q_SLOTS:
    void init()
    {
        m_host = std::make_unique<ScriptedHost>();
        m_folder = std::make_unique<ApplicationFolder>(*m_host);
        m_folder->WriteLanguage(Language());
        m_folder->Write(QStringLiteral("indis1.ttf"), "font");
        AzzeraStatoCondiviso();
        MakeFolder(QStringLiteral("windows/fonts"));
        RegistraFinestra(QStringLiteral("FormAvvio"), []() -> Form * { return new Splash; });
    }
    void cleanup()
    {
        m_folder.reset();
        m_host.reset();
    }

    void aFirstRunMakesTheFoldersTheReadmeAndTheFont()
    {
        m_host->ExpectBox(FontBox);
        Main();
        QCOMPARE(OnTheDrive(), QStringList({Root, Readme, Own, Data, QStringLiteral("windows"),
                                            QStringLiteral("windows/fonts"), FontPath}));
        QCOMPARE(m_host->DriveFile(FontPath), QByteArray("font"));
        QCOMPARE(m_host->RegisteredFonts, QStringList(m_host->Drive.filePath(FontPath)));
        // The box comes before the splash.
        QCOMPARE(m_host->Events,
                 QStringList({QStringLiteral("randomize"), QStringLiteral("box ") + FontBox,
                              QStringLiteral("FormAvvio")}));
        QVERIFY(Form::Find(QStringLiteral("FormAvvio")) != nullptr);
    }

    void theStateIsThatOfTheDefaultPlayer()
    {
        m_host->ExpectBox(FontBox);
        Main();
        QCOMPARE(FileUtente,
                 QStringLiteral("C:\\ImpostazioniProgrammiTesmi\\morlenekvt\\_predefinito.INI"));
        QCOMPARE(NomeUtente, QStringLiteral("_predefinito"));
        QCOMPARE(VelocitaScansione, int16_t(4));
        QCOMPARE(StringaProfilo, QStringLiteral("profilo"));
        QCOMPARE(ColoriWebHex.at(6), QStringLiteral("FFCC00"));
        QCOMPARE(Messaggi(34), QStringLiteral("t40"));
        QCOMPARE(EtichettaEsatti, QStringLiteral(" Esatti"));
        QCOMPARE(EtichettaErrati, QStringLiteral(" Errati"));
        QCOMPARE(EtichettaLivello, QStringLiteral(" Livello"));
        QCOMPARE(LinguaCorrente, QStringLiteral("prova"));
    }

    void theReadmeHasItsFiveLines()
    {
        m_host->ExpectBox(FontBox);
        Main();
        const QList<QByteArray> lines = m_host->DriveFile(Readme).split('\n');
        QCOMPARE(lines.size(), 6);
        QCOMPARE(lines.at(0), QByteArray("Questa cartella contiene i file di impostazione dei "
                                         "programmi del sito di MorleneKVT.\r"));
        QCOMPARE(lines.at(1), QByteArray("\r"));
        QCOMPARE(lines.at(2), QByteArray("Se qualche programma presenta problemi di funzionamento "
                                         "pu\xF2 essere utile cancellare il file *.ini relativo al "
                                         "programma in quata cartella.\r"));
        QCOMPARE(lines.at(3), QByteArray("\r"));
        QCOMPARE(lines.at(4), QByteArray("Non cancellare questo file.\r"));
        QCOMPARE(lines.at(5), QByteArray());
    }

    void aSecondRunTouchesNothing()
    {
        m_host->ExpectBox(FontBox);
        Main();
        DropForms();
        AzzeraStatoCondiviso();
        m_host->WriteDriveFile(Readme, "mio");
        m_host->WriteDriveFile(FontPath, "mio");
        m_host->TakeEvents();
        m_host->RegisteredFonts.clear();
        const QStringList before = OnTheDrive();
        Main();
        QCOMPARE(OnTheDrive(), before);
        QCOMPARE(m_host->DriveFile(Readme), QByteArray("mio"));
        QCOMPARE(m_host->DriveFile(FontPath), QByteArray("mio"));
        QCOMPARE(Boxes(), QStringList());
        // The fonts of the drive are known to each run anew.
        QCOMPARE(m_host->RegisteredFonts, QStringList(m_host->Drive.filePath(FontPath)));
    }

    void aSecondInstanceShowsItsBoxAndChangesNothing()
    {
        m_host->OtherInstance = true;
        m_host->ExpectBox(Box{.Text = QStringLiteral("Gia' in esecuzione"), .Title = {}});
        const QStringList before = OnTheDrive();
        Main();
        QCOMPARE(OnTheDrive(), before);
        QCOMPARE(m_host->Events, QStringList(QStringLiteral("box Gia' in esecuzione")));
        QVERIFY(Form::Loaded().empty());
        QCOMPARE(FileUtente, QString());
        QCOMPARE(m_host->RegisteredFonts, QStringList());
    }

    void theReportsFolderAloneComesBackWithoutTheFont()
    {
        MakeFolder(Own);
        m_host->WriteDriveFile(Readme, "mio");
        Main();
        QVERIFY(m_host->DriveHas(Data));
        // With each folder that is made it is written anew.
        QVERIFY(m_host->DriveFile(Readme).startsWith("Questa cartella"));
        QVERIFY(!m_host->DriveHas(FontPath));
        QCOMPARE(Boxes(), QStringList());
    }

    void theFontStepFindsTheFontAndDoesNothing()
    {
        m_host->WriteDriveFile(FontPath, "c'era");
        Main();
        QVERIFY(m_host->DriveHas(Data));
        QCOMPARE(m_host->DriveFile(FontPath), QByteArray("c'era"));
        QCOMPARE(Boxes(), QStringList());
        QCOMPARE(m_host->RegisteredFonts, QStringList(m_host->Drive.filePath(FontPath)));
    }

    void aFontThatCannotBeCopiedIsLeftSilently()
    {
        m_folder->Remove(QStringLiteral("indis1.ttf"));
        Main();
        QVERIFY(m_host->DriveHas(Data));
        QVERIFY(!m_host->DriveHas(FontPath));
        QCOMPARE(Boxes(), QStringList());
        QCOMPARE(m_host->FatalNumber, 0);
    }

    void withoutAFontsFolderTheStartGoesOn()
    {
        QVERIFY(QDir(m_host->Drive.filePath(QStringLiteral("windows"))).removeRecursively());
        Main();
        QVERIFY(m_host->DriveHas(Data));
        QCOMPARE(Boxes(), QStringList());
        QVERIFY(Form::Find(QStringLiteral("FormAvvio")) != nullptr);
    }

    void everyFontOfTheDriveIsRegistered()
    {
        MakeFolder(Own);
        for (const char *name : {"b.TTF", "a.otf", "c.txt"})
            m_host->WriteDriveFile(QStringLiteral("windows/fonts/") + QLatin1String(name), "x");
        Main();
        const QString folder = m_host->Drive.filePath(QStringLiteral("windows/fonts/"));
        // There is no copy of the program's own among them.
        QCOMPARE(m_host->RegisteredFonts,
                 QStringList({folder + QStringLiteral("b.TTF"), folder + QStringLiteral("a.otf"),
                              m_folder->Path(QStringLiteral("indis1.ttf"))}));
    }

    void theFontBesideTheProgramStandsInForOneThatCouldNotBeCopied()
    {
        QVERIFY(QDir(m_host->Drive.filePath(QStringLiteral("windows"))).removeRecursively());
        Main();
        QCOMPARE(m_host->RegisteredFonts,
                 QStringList(m_folder->Path(QStringLiteral("indis1.ttf"))));
    }

    void foldersOfAnotherCaseAreTheSame()
    {
        MakeFolder(QStringLiteral("IMPOSTAZIONIPROGRAMMITESMI/MorleneKVT/DATI"));
        const QStringList before = OnTheDrive();
        Main();
        QCOMPARE(OnTheDrive(), before);
        QCOMPARE(Boxes(), QStringList());
    }

    void theStartAlwaysTakesTheDefaultPlayersFile()
    {
        MakeFolder(Data);
        QByteArray profile = "True\r\nFalse\r\n 2 \r\n 7 \r\n";
        for (int i = 0; i < 25; ++i)
            profile += "x\r\n";
        profile += " 1 \r\nminuscolo\r\narial\r\narial\r\n 24 \r\n 1 \r\n 1 \r\nTrue\r\n 1 \r\n"
                   " 1 \r\nFalse\r\nFalse\r\n\r\nMerlin\r\n";
        m_host->WriteDriveFile(Own + QStringLiteral("/_Predefinito.ini"), profile);
        Main();
        QCOMPARE(ModoInput, int16_t(2));
        QCOMPARE(VelocitaScansione, int16_t(7));
    }

    void withoutTheTextsOnlyTheBlanksAreLeft_data()
    {
        QTest::addColumn<bool>("file");
        QTest::newRow("a language without these keys") << true;
        QTest::newRow("no language file") << false;
    }
    void withoutTheTextsOnlyTheBlanksAreLeft()
    {
        QFETCH(bool, file);
        if (file)
            m_folder->WriteLanguage("[Strings]\r\n0002=altro\r\n0046=altro\r\n");
        else
            m_folder->Remove(QStringLiteral("lngmorlene/prova.lng"));
        m_host->ExpectBox(QString(FontBox).remove(QStringLiteral("Font installato")));
        Main();
        QString all;
        for (int i = 0; i < QuantiMessaggi; ++i)
            all += Messaggi(i);
        QCOMPARE(all.trimmed(), QString());
        QCOMPARE(Messaggi(0), QStringLiteral(" "));
        QCOMPARE(Messaggi(14), QStringLiteral("  "));
        QCOMPARE(Messaggi(34), QString());
        QCOMPARE(EtichettaEsatti, QStringLiteral(" "));
        QVERIFY(Form::Find(QStringLiteral("FormAvvio")) != nullptr);
    }

    void everySentencePieceHasItsKeyAndItsBlanks()
    {
        CaricaMessaggi();
        const QStringList pieces = {
            QStringLiteral(" "),    QStringLiteral("t7 "),  QStringLiteral("t8 "),
            QStringLiteral("t9 "),  QStringLiteral("t10 "), QStringLiteral("t11 "),
            QStringLiteral("t12"),  QStringLiteral("t13"),  QStringLiteral("t14"),
            QStringLiteral("t15"),  QStringLiteral("t16"),  QStringLiteral("t17"),
            QStringLiteral("t18"),  QStringLiteral("t19"),  QStringLiteral(" t20 "),
            QStringLiteral("t21"),  QStringLiteral("t22"),  QStringLiteral("t23"),
            QStringLiteral("t24"),  QStringLiteral("t25"),  QStringLiteral("t26 "),
            QStringLiteral("t27 "), QStringLiteral("t28 "), QStringLiteral("t29 "),
            QStringLiteral("t30 "), QStringLiteral("t31 "), QStringLiteral("t32 "),
            QStringLiteral("t33 "), QStringLiteral("t34 "), QStringLiteral("t35 "),
            QStringLiteral("t36 "), QStringLiteral("t37"),  QStringLiteral(" t38 "),
            QStringLiteral("t39 "), QStringLiteral("t40")};
        QCOMPARE(pieces.size(), 35);
        for (int i = 0; i < QuantiMessaggi; ++i)
            QCOMPARE(Messaggi(i), pieces.at(i));
    }

    void aPieceWithTheLetterOfItsPatternIsNotChanged()
    {
        m_folder->WriteLanguage("[Strings]\r\n0020=tetto tutto\r\n");
        CaricaMessaggi();
        QCOMPARE(Messaggi(14), QStringLiteral(" tetto tutto "));
    }

    void aFileAndAFolderAreToldApart()
    {
        m_host->WriteDriveFile(QStringLiteral("a/b.txt"), "x");
        QVERIFY(EsisteFile(QStringLiteral("C:\\a\\b.txt")));
        QVERIFY(EsisteFile(QStringLiteral("c:\\A\\\\B.TXT")));
        QVERIFY(!EsisteFile(QStringLiteral("C:\\a")));
        QVERIFY(!EsisteFile(QStringLiteral("C:\\a\\c.txt")));
        QVERIFY(!EsisteFile(QString()));
        QVERIFY(!EsisteFile(QStringLiteral("C:\\a\\b?.txt:")));
        QVERIFY(EsisteCartella(QStringLiteral("C:\\a")));
        QVERIFY(EsisteCartella(QStringLiteral("C:\\a\\")));
        QVERIFY(!EsisteCartella(QStringLiteral("C:\\b")));
        QVERIFY(!EsisteCartella(QString()));
        QVERIFY(!EsisteCartella(QStringLiteral("C:\\a|b")));
        // The look-up for a folder finds plain files too, but nothing stands in a file.
        QVERIFY(EsisteCartella(QStringLiteral("C:\\a\\b.txt")));
        QVERIFY(!EsisteCartella(QStringLiteral("C:\\a\\b.txt\\")));
    }

    void theFolderOfTheSystemIsInSmallLetters()
    {
        QCOMPARE(CartellaWindows(), QStringLiteral("c:\\windows\\"));
    }

    void aFileInThePlaceOfTheSettingsIsFatalWithItsPath()
    {
        m_host->WriteDriveFile(Root, "un file");
        Guarded(Main);
        QVERIFY(m_host->FatalNumber != 0);
        QVERIFY2(m_host->FatalText.contains(Root), qPrintable(m_host->FatalText));
        QCOMPARE(m_host->DriveFile(Root), QByteArray("un file"));
        QVERIFY(Form::Loaded().empty());
    }

    void aLinkInThePlaceOfTheSettingsIsFatal()
    {
#ifdef Q_OS_WIN
        QSKIP("An ordinary user makes no links there");
#endif
        QVERIFY(QFile::link(m_host->Drive.filePath(QStringLiteral("manca")),
                            m_host->Drive.filePath(Root)));
        Guarded(Main);
        QVERIFY(m_host->FatalNumber != 0);
        QVERIFY2(m_host->FatalText.contains(Root), qPrintable(m_host->FatalText));
        QVERIFY(!m_host->DriveHas(QStringLiteral("manca")));
    }

    void aMissingDriveIsFatalWithThePath()
    {
        QVERIFY(QDir(m_host->Drive.path()).removeRecursively());
        Guarded(Main);
        QCOMPARE(m_host->FatalNumber, int(PathNotFound));
        QVERIFY2(m_host->FatalText.contains(m_host->Drive.path()), qPrintable(m_host->FatalText));
        QCOMPARE(Boxes(), QStringList());
    }
};

MORLENE_TEST(TestStart)
#include "test_start.moc"
