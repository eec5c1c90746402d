// A player's settings on disk: byte by byte as written, and as loosely as they may be read.
#include "core/profile.h"

#include "core/profile_text.h"
#include "core/shared_state.h"
#include "language/language.h"
#include "platform/base/errors.h"
#include "support/application_folder.h"
#include "support/registered_tests.h"
#include "support/scripted_host.h"

#include <QElapsedTimer>
#include <QLocale>
#include <QTest>

#include <clocale>
#include <csignal>
#include <memory>

#ifndef Q_OS_WIN
#include <sys/resource.h>
#include <unistd.h>
#endif

using namespace platform;

namespace {

const QString Folder = QStringLiteral("ImpostazioniProgrammiTesmi/morlenekvt/");

// Values that no default has, so that a default which is put back shows.
void SetOthers()
{
    SuoniAttivi = false;
    DisabilitaMousePersonalizzato = true;
    ModoInput = 3;
    VelocitaScansione = 9;
    for (int row = 0; row < 5; ++row)
        for (int column = 0; column < 5; ++column)
            Colori(row, column) = QStringLiteral("c%1%2").arg(row).arg(column);
    ColoreSfondo = 1;
    TipoCarattere = QStringLiteral("corsivo");
    FontCorrente = QStringLiteral("Indis1");
    FontScelto = QStringLiteral("Verdana");
    DimensioneFont = 30;
    ColoreFont = 2;
    ColoreBottoni = 3;
    ColoriVari = false;
    ColorePulsantiSelezionati = 4;
    ColoreSfondoTesto = 5;
    PassaggioLivelli = true;
    SalvaUtente = true;
    StringaProfilo = QStringLiteral("altro");
    NomePersonaggio = QStringLiteral("altri");
}

QStringList Values()
{
    QStringList values;
    const auto add = [&](auto value) { values << QString::number(value, 'f', 4); };
    values << (SuoniAttivi ? QStringLiteral("T") : QStringLiteral("F"))
           << (DisabilitaMousePersonalizzato ? QStringLiteral("T") : QStringLiteral("F"));
    add(double(ModoInput));
    add(double(VelocitaScansione));
    for (int row = 0; row < 5; ++row)
        for (int column = 0; column < 5; ++column)
            values << Colori(row, column);
    add(ColoreSfondo);
    values << TipoCarattere << FontCorrente << FontScelto;
    add(double(DimensioneFont));
    add(ColoreFont);
    add(ColoreBottoni);
    values << (ColoriVari ? QStringLiteral("T") : QStringLiteral("F"));
    add(ColorePulsantiSelezionati);
    add(ColoreSfondoTesto);
    values << (PassaggioLivelli ? QStringLiteral("T") : QStringLiteral("F"))
           << (SalvaUtente ? QStringLiteral("T") : QStringLiteral("F")) << StringaProfilo
           << NomePersonaggio;
    return values;
}

} // namespace

class TestProfile : public QObject {
    Q_OBJECT
private:
    std::unique_ptr<ScriptedHost> m_host;
    std::unique_ptr<ApplicationFolder> m_folder;
    QStringList m_defaults;

    void Load(const QByteArray &content)
    {
        m_host->WriteDriveFile(Folder + QStringLiteral("prova.ini"), content);
        SetOthers();
        CaricaImpostazioni();
    }
    QByteArray Saved() const { return m_host->DriveFile(Folder + QStringLiteral("prova.ini")); }
    static int SaveError()
    {
        return Skipping([] { SalvaImpostazioni(); });
    }

private Q_SLOTS:
    void init()
    {
        m_host = std::make_unique<ScriptedHost>();
        m_folder = std::make_unique<ApplicationFolder>(*m_host);
        m_folder->WriteLanguage("[Strings]\r\n0041=profilo\r\n");
        AzzeraStatoCondiviso();
        ImpostazioniPredefinite();
        m_defaults = Values();
        FileUtente = QStringLiteral("C:\\ImpostazioniProgrammiTesmi\\morlenekvt\\prova.ini");
        QVERIFY(QDir(m_host->Drive.path()).mkpath(Folder));
    }
    void cleanup()
    {
        m_folder.reset();
        m_host.reset();
        QLocale::setDefault(QLocale::c());
        std::setlocale(LC_ALL, "C.UTF-8");
    }

    void theDefaultsAreThose()
    {
        SetOthers();
        ImpostazioniPredefinite();
        QCOMPARE(SuoniAttivi, true);
        QCOMPARE(DisabilitaMousePersonalizzato, false);
        QCOMPARE(ModoInput, int16_t(0));
        QCOMPARE(VelocitaScansione, int16_t(4));
        QCOMPARE(Colori(0, 0), QStringLiteral("FFFFCC"));
        QCOMPARE(Colori(0, 4), QStringLiteral("sfondo"));
        QCOMPARE(Colori(2, 3), QStringLiteral("rossa"));
        QCOMPARE(Colori(4, 4), QStringLiteral("gialle"));
        QCOMPARE(ColoreSfondo, 16777088.0);
        QCOMPARE(TipoCarattere, QStringLiteral("minuscolo"));
        QCOMPARE(FontCorrente, QStringLiteral("arial"));
        QCOMPARE(FontScelto, QStringLiteral("arial"));
        QCOMPARE(DimensioneFont, int16_t(24));
        QCOMPARE(ColoreFont, -2147483630.0);
        QCOMPARE(ColoreBottoni, -2147483633.0);
        QCOMPARE(ColoriVari, true);
        QCOMPARE(ColorePulsantiSelezionati, 255.0);
        QCOMPARE(ColoreSfondoTesto, 16777215.0);
        QCOMPARE(PassaggioLivelli, false);
        QCOMPARE(SalvaUtente, false);
        QCOMPARE(StringaProfilo, QStringLiteral("profilo"));
        QCOMPARE(NomePersonaggio, QStringLiteral("Merlin"));
    }

    void theDefaultsLeaveThePlayerAlone()
    {
        NomeUtente = QStringLiteral("anna");
        ImpostazioniPredefinite();
        QCOMPARE(NomeUtente, QStringLiteral("anna"));
        QVERIFY(FileUtente.endsWith(QStringLiteral("prova.ini")));
    }

    void theColoursAloneGoBack()
    {
        SetOthers();
        Colori(5, 0) = QStringLiteral("resta");
        ColoriPredefiniti();
        QCOMPARE(Colori(1, 1), QStringLiteral("verde"));
        QCOMPARE(Colori(5, 0), QStringLiteral("resta"));
        QCOMPARE(ModoInput, int16_t(3));
    }

    void theDefaultProfileIsWrittenByteByByte()
    {
        SalvaImpostazioni();
        QCOMPARE(Saved(), ProfileOf(DefaultProfileLines()));
        QCOMPARE(Saved().count("\r\n"), 43);
    }

    void everyFieldIsWrittenInItsLine()
    {
        SetOthers();
        SalvaImpostazioni();
        QList<QByteArray> lines = {"False", "True", " 3 ", " 9 "};
        for (int row = 0; row < 5; ++row)
            for (int column = 0; column < 5; ++column)
                lines << "c" + QByteArray::number(row) + QByteArray::number(column);
        lines << " 1 "
              << "corsivo"
              << "Indis1"
              << "Verdana"
              << " 30 "
              << " 2 "
              << " 3 "
              << "False"
              << " 4 "
              << " 5 "
              << "True"
              << "True"
              << "altro"
              << "altri";
        QCOMPARE(Saved(), ProfileOf(lines));
    }

    void whatIsSavedIsLoaded()
    {
        SetOthers();
        const QStringList others = Values();
        SalvaImpostazioni();
        ImpostazioniPredefinite();
        CaricaImpostazioni();
        QCOMPARE(Values(), others);
    }

    void theSystemsColoursSurviveASaveAndALoad()
    {
        SalvaImpostazioni();
        SetOthers();
        CaricaImpostazioni();
        QCOMPARE(Values(), m_defaults);
        QCOMPARE(ColoreFont, -2147483630.0);
        QCOMPARE(ColoreBottoni, -2147483633.0);
    }

    void aLocaleWithCommasChangesNothing()
    {
        QLocale::setDefault(QLocale(QLocale::Italian, QLocale::Italy));
        std::setlocale(LC_ALL, "it_IT.UTF-8");
        QCOMPARE(QLocale().toString(1.5), QStringLiteral("1,5"));
        ColoreSfondo = 1234567.5;
        SalvaImpostazioni();
        QVERIFY(Saved().contains("\r\n 1234567.5 \r\n"));
        SetOthers();
        CaricaImpostazioni();
        QCOMPARE(ColoreSfondo, 1234567.5);
        QCOMPARE(DimensioneFont, int16_t(24));
    }

    void aMissingFileGivesDefaultsAndIsNotMade()
    {
        SetOthers();
        CaricaImpostazioni();
        QCOMPARE(Values(), m_defaults);
        QVERIFY(!m_host->DriveHas(Folder + QStringLiteral("prova.ini")));
    }

    void aDamagedFileGivesDefaultsAndStays_data()
    {
        QTest::addColumn<QByteArray>("content");
        QList<QByteArray> lines = DefaultProfileLines();
        lines.removeLast();
        QTest::newRow("42 lines") << ProfileOf(lines);
        QTest::newRow("42 lines without an end") << ProfileOf(lines).chopped(2);
        QTest::newRow("20 good lines") << ProfileOf(lines.mid(0, 20));
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("one line end") << QByteArray("\r\n");
        QTest::newRow("word for a number") << ProfileWith(3, "mouse");
        QTest::newRow("empty number") << ProfileWith(34, "");
        QTest::newRow("partly a number") << ProfileWith(34, "24 punti");
        QTest::newRow("inner blank") << ProfileWith(34, "2 4");
        QTest::newRow("hexadecimal") << ProfileWith(30, "&HFF");
        QTest::newRow("hexadecimal of C") << ProfileWith(30, "0xFF");
        QTest::newRow("infinity") << ProfileWith(30, "inf");
        QTest::newRow("not a number") << ProfileWith(30, "nan");
        QTest::newRow("exponent too large") << ProfileWith(30, "1e999");
        QTest::newRow("above 16 bits") << ProfileWith(3, " 32768 ");
        QTest::newRow("below 16 bits") << ProfileWith(4, "-32769 ");
        QTest::newRow("above 32 bits") << ProfileWith(34, "99999999999 ");
        QTest::newRow("comma in a name") << ProfileWith(11, "rosso, scuro");
        QTest::newRow("open quote") << ProfileWith(43, "\"Merlin");
        QTest::newRow("open quote ahead") << ProfileWith(5, "\"FFFFCC");
        QTest::newRow("noise") << QByteArray::fromHex("00ff10220d0a2c2c22e9f08001");
        QTest::newRow("zeros") << QByteArray(4096, '\0');
        QTest::newRow("10 MB of noise") << QByteArray(10 * 1000 * 1000, '\xE9');
        QTest::newRow("10 MB of commas") << QByteArray(10 * 1000 * 1000, ',');
    }
    void aDamagedFileGivesDefaultsAndStays()
    {
        QFETCH(QByteArray, content);
        QElapsedTimer timer;
        timer.start();
        Load(content);
        QVERIFY(timer.elapsed() < 10000);
        QCOMPARE(Values(), m_defaults);
        QCOMPARE(Saved(), content);
        QCOMPARE(m_host->Events, QStringList()); // no box
    }

    void aLinkOrAFolderInThePlaceOfAProfileGivesDefaults()
    {
#ifdef Q_OS_WIN
        QSKIP("An ordinary user makes no links there");
#endif
        const QString elsewhere = m_host->Drive.filePath(QStringLiteral("altrove"));
        m_host->WriteDriveFile(QStringLiteral("altrove"), ProfileWith(3, " 2 "));
        const QString place = m_host->Drive.filePath(Folder + QStringLiteral("prova.ini"));
        QVERIFY(QFile::link(elsewhere, place));
        SetOthers();
        CaricaImpostazioni();
        QCOMPARE(Values(), m_defaults);
        // A save does not write through it either.
        QVERIFY(SaveError() != 0);
        QCOMPARE(m_host->DriveFile(QStringLiteral("altrove")), ProfileWith(3, " 2 "));
        QVERIFY(QFile::remove(place));
        QVERIFY(QDir().mkdir(place));
        SetOthers();
        CaricaImpostazioni();
        QCOMPARE(Values(), m_defaults);
        QVERIFY(SaveError() != 0);
    }

    void aLooseProfileIsRead_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("line feeds") << ProfileOf(DefaultProfileLines()).replace("\r\n", "\n");
        QTest::newRow("carriage returns") << ProfileOf(DefaultProfileLines()).replace("\r\n", "\r");
        QTest::newRow("no last line end") << ProfileOf(DefaultProfileLines()).chopped(2);
        QTest::newRow("commas instead of lines") << DefaultProfileLines().join(',');
        QTest::newRow("lines beyond") << ProfileOf(DefaultProfileLines()) + "di troppo\r\n";
        QTest::newRow("quotes") << ProfileWith(11, "\"verde\"");
        QTest::newRow("behind a quote") << ProfileWith(11, "\"verde\" scuro");
        QTest::newRow("blanks ahead") << ProfileWith(11, " \t verde");
        QTest::newRow("number in quotes") << ProfileWith(34, "\"24\"");
        QTest::newRow("number with a point") << ProfileWith(34, " 24.5 ");
        QTest::newRow("number with an exponent") << ProfileWith(34, "2.4E1");
        QTest::newRow("number with a plus") << ProfileWith(34, "+24");
        QTest::newRow("long booleans") << ProfileWith(1, "Tutto");
    }
    void aLooseProfileIsRead()
    {
        QFETCH(QByteArray, content);
        Load(content);
        // A damaged one would give the same values, so one field tells that it was read.
        QCOMPARE(Values(), m_defaults);
        Load(QByteArray(content).replace("Merlin", "Morgana"));
        QCOMPARE(NomePersonaggio, QStringLiteral("Morgana"));
    }

    void aLinesStateIsReadByItsFirstLetter_data()
    {
        QTest::addColumn<QByteArray>("line");
        QTest::addColumn<bool>("value");
        QTest::newRow("True") << QByteArray("True") << true;
        QTest::newRow("T") << QByteArray("T") << true;
        QTest::newRow("blank ahead") << QByteArray(" True") << true;
        QTest::newRow("small") << QByteArray("true") << false;
        QTest::newRow("False") << QByteArray("False") << false;
        QTest::newRow("empty") << QByteArray("") << false;
        QTest::newRow("number") << QByteArray("-1") << false;
        QTest::newRow("Vero") << QByteArray("Vero") << false;
    }
    void aLinesStateIsReadByItsFirstLetter()
    {
        QFETCH(QByteArray, line);
        QFETCH(bool, value);
        for (const int number : {1, 2, 37, 40, 41}) {
            Load(ProfileWith(number, line).replace("Merlin", "Morgana"));
            const bool &field = number == 1    ? SuoniAttivi
                                : number == 2  ? DisabilitaMousePersonalizzato
                                : number == 37 ? ColoriVari
                                : number == 40 ? PassaggioLivelli
                                               : SalvaUtente;
            QCOMPARE(field, value);
            QCOMPARE(NomePersonaggio, QStringLiteral("Morgana"));
        }
    }

    void anEmptyNameKeepsItsPlace()
    {
        Load(ProfileWith(11, ""));
        QCOMPARE(Colori(1, 0), QStringLiteral("00FF00"));
        QCOMPARE(Colori(1, 1), QString());
        QCOMPARE(Colori(1, 2), QStringLiteral("verdi"));
        QCOMPARE(ColoreSfondo, 16777088.0);
    }

    void textKeepsItsTrailingBlanks()
    {
        Load(ProfileWith(11, "verde  "));
        QCOMPARE(Colori(1, 1), QStringLiteral("verde  "));
    }

    void aNumberIsRoundedHalvesToEven()
    {
        Load(ProfileWith(4, " 2.5 "));
        QCOMPARE(VelocitaScansione, int16_t(2));
        Load(ProfileWith(4, " 3.5 "));
        QCOMPARE(VelocitaScansione, int16_t(4));
        Load(ProfileWith(4, "-32768 "));
        QCOMPARE(VelocitaScansione, int16_t(-32768));
    }

    void aNameWithACommaIsWrittenAsItStands()
    {
        Colori(1, 1) = QStringLiteral("rosso, scuro");
        SalvaImpostazioni();
        QCOMPARE(Saved(), ProfileWith(11, "rosso, scuro"));
        CaricaImpostazioni();
        QCOMPARE(Values(), m_defaults);
    }

    void aLetterOutsideTheCodePageBecomesAQuestionMark()
    {
        Colori(1, 1) = QStringLiteral(u"pi\u00F9 \u20AC \u0416");
        SalvaImpostazioni();
        QCOMPARE(Saved(), ProfileWith(11, "pi\xF9 \x80 ?"));
        CaricaImpostazioni();
        QCOMPARE(Colori(1, 1), QStringLiteral(u"pi\u00F9 \u20AC ?"));
    }

    void aPlayersNameIsFoundInAnyCase()
    {
        FileUtente = QStringLiteral("C:\\ImpostazioniProgrammiTesmi\\morlenekvt\\PROVA.INI");
        ModoInput = 2;
        m_host->WriteDriveFile(Folder + QStringLiteral("prova.ini"), "vecchio");
        SalvaImpostazioni();
        QCOMPARE(Saved(), ProfileWith(3, " 2 "));
        QVERIFY(!m_host->DriveHas(Folder + QStringLiteral("PROVA.INI")));
        ModoInput = 0;
        CaricaImpostazioni();
        QCOMPARE(ModoInput, int16_t(2));
    }

    void aShorterProfileLeavesNothingOfALongerOne()
    {
        m_host->WriteDriveFile(Folder + QStringLiteral("prova.ini"), QByteArray(100000, 'x'));
        SalvaImpostazioni();
        QCOMPARE(Saved(), ProfileOf(DefaultProfileLines()));
    }

    void aFullDiskIsAnErrorAndNoOtherFileIsMade()
    {
#ifdef Q_OS_WIN
        QSKIP("No limit there stands for a full disk");
#else
        // A limit on the size of files stands for a disk that is full.
        rlimit before{};
        QCOMPARE(::getrlimit(RLIMIT_FSIZE, &before), 0);
        rlimit small = before;
        small.rlim_cur = 100;
        const auto handler = std::signal(SIGXFSZ, SIG_IGN);
        QCOMPARE(::setrlimit(RLIMIT_FSIZE, &small), 0);
        const int number = SaveError();
        ::setrlimit(RLIMIT_FSIZE, &before);
        std::signal(SIGXFSZ, handler);
        QCOMPARE(number, int(DiskFull));
        const QStringList files = QDir(m_host->Drive.filePath(Folder)).entryList(QDir::Files);
        QVERIFY2(files.isEmpty() || files == QStringList(QStringLiteral("prova.ini")),
                 qPrintable(files.join(QLatin1Char(' '))));
#endif
    }

    void aRefusedNameIsAnErrorAndNoOtherFileIsMade_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("number");
        QTest::newRow("colon") << "a:b" << int(BadFileNameOrNumber);
        QTest::newRow("question mark") << "a?" << int(BadFileNameOrNumber);
        QTest::newRow("slash") << "a/b" << int(BadFileNameOrNumber);
        QTest::newRow("folder that is missing") << "a\\b" << int(PathNotFound);
        QTest::newRow("way up") << "..\\b" << int(BadFileNameOrNumber);
        QTest::newRow("too long") << QString(300, QLatin1Char('a')) << int(BadFileNameOrNumber);
    }
    void aRefusedNameIsAnErrorAndNoOtherFileIsMade()
    {
        QFETCH(QString, name);
        QFETCH(int, number);
        FileUtente = QStringLiteral("C:\\ImpostazioniProgrammiTesmi\\morlenekvt\\") + name +
                     QStringLiteral(".ini");
        QCOMPARE(SaveError(), number);
        QVERIFY(QDir(m_host->Drive.filePath(Folder)).isEmpty());
        // To load it is no error.
        SetOthers();
        CaricaImpostazioni();
        QCOMPARE(Values(), m_defaults);
    }
};

MORLENE_TEST(TestProfile)
#include "test_profile.moc"
