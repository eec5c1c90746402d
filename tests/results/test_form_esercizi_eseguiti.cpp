// The log of exercises: its table, the report as it is written and as it is read, the boxes of
// every failure, and the printed page.
#include "language/language.h"
#include "platform/files/files.h"
#include "platform/printing/printer_font.h"
#include "results/form_esercizi_eseguiti.h"
#include "support/as_user.h"
#include "support/exercise_fixture.h"
#include "support/registered_tests.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QFont>
#include <QFontMetricsF>
#include <QTest>
#include <sys/resource.h>

#include <algorithm>
#include <cmath>
#include <csignal>

using namespace platform;

namespace {

const QString Settings = QStringLiteral("ImpostazioniProgrammiTesmi/morlenekvt/");
const QString Boxes = QStringLiteral("Morlenekvt");

class Teacher : public Player {
public:
    Teacher()
    {
        QDir().mkpath(Host.Drive.filePath(Settings + QStringLiteral("dati")));
        NomeUtente = QStringLiteral("Niccolò");
        EtichettaEsatti = QStringLiteral(" Esatti");
    }

    // One exercise, left at once: the row after it stays empty.
    static void DoExercise(const char *title, const char *level, const char *right,
                           const char *wrong)
    {
        ++NumeroEserciziEseguiti;
        EserciziEseguiti(NumeroEserciziEseguiti, 0) = QString::fromUtf8(title);
        EserciziEseguiti(NumeroEserciziEseguiti, 1) = QString::fromUtf8(level);
        EserciziEseguiti(NumeroEserciziEseguiti, 2) = QString::fromUtf8(right);
        EserciziEseguiti(NumeroEserciziEseguiti, 3) = QString::fromUtf8(wrong);
        ++NumeroEserciziEseguiti;
    }

    FormEserciziEseguiti &OpenLog()
    {
        auto *log = new FormEserciziEseguiti;
        log->Show();
        QCoreApplication::processEvents();
        return *log;
    }

    QString File(const QString &name) const { return Host.Drive.filePath(name); }
    QByteArray Content(const QString &name) const { return Host.DriveFile(name); }

    void ExpectError(const char *key)
    {
        Host.ExpectBox(Box{
            .Text = MLSTesto(QString::fromLatin1(key)), .Title = Boxes, .Icon = BoxIcon::Critical});
    }

    // Opens a report of that content.
    FormEserciziEseguiti &OpenReport(const QByteArray &content, bool good)
    {
        FormEserciziEseguiti &log = OpenLog();
        Host.WriteDriveFile(QStringLiteral("prova.rpt"), content);
        Host.ExpectFile(QStringLiteral("Apri"), File(QStringLiteral("prova.rpt")));
        if (!good)
            ExpectError("0077");
        log.mnuApri.OnClick();
        return log;
    }
};

QStringList Row(const Grid &grid, int row)
{
    QStringList texts;
    for (int column = 0; column < grid.Cols(); ++column)
        texts << grid.TextMatrix(row, column);
    return texts;
}

// Of the table, in twips inside of the margin; frame and inner lines by their pens.
struct Drawn {
    double Left = 0;
    double Top = 0;
    double Right = 0;
    double Bottom = 0;
    int FrameLines = 0;
    QList<double> Across; // heights
    QList<double> Down;   // places from the left
    bool WholeLines = true;
    double Outermost = 0; // of all ink, how near it comes to the sheet's edge
};
constexpr double Dot = 1440.0 / 600; // twips
constexpr double Margin = 450;
constexpr double Gap = 60;
double Twips(int millimetres)
{
    return millimetres * 1440 / 25.4;
}

Drawn Table(const FakePage &page, const FakeSheet &sheet)
{
    Drawn drawn;
    drawn.Left = drawn.Top = drawn.Outermost = 1e9;
    for (const PageLine &line : page.Lines) {
        for (const double room : {std::min(line.X1, line.X2), std::min(line.Y1, line.Y2),
                                  Twips(sheet.VertSize) - std::max(line.X1, line.X2),
                                  Twips(sheet.HorzSize) - std::max(line.Y1, line.Y2)})
            drawn.Outermost = std::min(drawn.Outermost, room - line.Pen / 2);
        if (line.Pen != 20 * Dot)
            continue;
        ++drawn.FrameLines;
        drawn.Left = std::min({drawn.Left, line.X1 - Margin, line.X2 - Margin});
        drawn.Right = std::max({drawn.Right, line.X1 - Margin, line.X2 - Margin});
        drawn.Top = std::min({drawn.Top, line.Y1 - Margin, line.Y2 - Margin});
        drawn.Bottom = std::max({drawn.Bottom, line.Y1 - Margin, line.Y2 - Margin});
    }
    for (const PageLine &line : page.Lines) {
        if (line.Pen != 4 * Dot)
            continue;
        const bool across = line.Y1 == line.Y2;
        if (across)
            drawn.Across << line.Y1 - Margin;
        else
            drawn.Down << line.X1 - Margin;
        drawn.WholeLines =
            drawn.WholeLines && (across ? line.X1 - Margin == drawn.Left &&
                                              std::abs(line.X2 - Margin - drawn.Right) < 0.01
                                        : line.X1 == line.X2 && line.Y1 - Margin == drawn.Top &&
                                              line.Y2 - Margin == drawn.Bottom);
    }
    return drawn;
}

double LineHeight(const Font &font)
{
    return QFontMetricsF(FontInTwips(font)).height();
}

} // namespace

class TestFormEserciziEseguiti : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // --- The table ---

    void withoutAnExerciseThereIsOnlyTheHeader()
    {
        Teacher teacher;
        const FormEserciziEseguiti &log = teacher.OpenLog();
        QCOMPARE(log.MSFlexGrid1.Rows(), 1);
        QCOMPARE(log.MSFlexGrid1.Cols(), 5);
        QCOMPARE(Row(log.MSFlexGrid1, 0), (QStringList{{},
                                                       MLSTesto(QStringLiteral("0075")),
                                                       QStringLiteral(" Livello"),
                                                       QStringLiteral(" Esatti"),
                                                       QStringLiteral(" Errati")}));
        QCOMPARE(log.Label1.Caption(), QStringLiteral("Niccolò"));
        QCOMPARE(log.Label2.Caption(),
                 MLSTesto(QStringLiteral("0074")) + QStringLiteral("21/11/2026"));
        QCOMPARE(log.Label3.Caption(), QString());
    }

    void twoExercisesStandInRowsOneAndThree()
    {
        Teacher teacher;
        Teacher::DoExercise("Vero o falso", "1", "0", "0");
        Teacher::DoExercise("Insiemi", "2", "7", "1");
        NumeroEserciziEseguiti = 3; // the second one still runs
        const FormEserciziEseguiti &log = teacher.OpenLog();
        QCOMPARE(log.MSFlexGrid1.Rows(), 4);
        QCOMPARE(Row(log.MSFlexGrid1, 1),
                 (QStringList{QStringLiteral("1"), QStringLiteral("Vero o falso"),
                              QStringLiteral("1"), QStringLiteral("0"), QStringLiteral("0")}));
        QCOMPARE(Row(log.MSFlexGrid1, 2), (QStringList{QStringLiteral("2"), {}, {}, {}, {}}));
        QCOMPARE(Row(log.MSFlexGrid1, 3),
                 (QStringList{QStringLiteral("3"), QStringLiteral("Insiemi"), QStringLiteral("2"),
                              QStringLiteral("7"), QStringLiteral("1")}));
    }

    void columnsTakePartsOfTheWholeTableAndTheirAlignment()
    {
        Teacher teacher;
        const FormEserciziEseguiti &log = teacher.OpenLog();
        const int part = static_cast<int>(log.MSFlexGrid1.Width()) / 24;
        QVERIFY(part > 0);
        const QList<int> parts{1, 10, 4, 4, 4};
        for (int column = 0; column < 5; ++column) {
            QCOMPARE(log.MSFlexGrid1.ColWidth(column),
                     static_cast<double>(part) * parts.at(column));
            QCOMPARE(static_cast<int>(log.MSFlexGrid1.ColAlignment(column)), column < 3 ? 3 : 0);
        }
    }

    void aFullLogIsShownToItsLastRowAndNoFurther()
    {
        Teacher teacher;
        for (int row = 1; row <= 500; ++row)
            EserciziEseguiti(row, 0) = QString::number(row * 2);
        NumeroEserciziEseguiti = 501; // the last exercise was left
        const FormEserciziEseguiti &log = teacher.OpenLog();
        QCOMPARE(log.MSFlexGrid1.Rows(), 501);
        QCOMPARE(Row(log.MSFlexGrid1, 500),
                 (QStringList{QStringLiteral("500"), QStringLiteral("1000"), {}, {}, {}}));
        QCOMPARE(teacher.Host.FatalNumber, 0);
    }

    void leavingShowsTheMenu()
    {
        Teacher teacher;
        teacher.OpenLog().mnuEsci.OnClick();
        QVERIFY(Form::Find(QStringLiteral("FormMenu")) != nullptr);
        QVERIFY(Form::Find(QStringLiteral("FormEserciziEseguiti")) == nullptr);
    }

    // --- Saving ---

    void theReportIsWrittenLineByLine()
    {
        Teacher teacher;
        Teacher::DoExercise("Vero, o falso", "1", "0", "0");
        FormEserciziEseguiti &log = teacher.OpenLog();
        const QString file = teacher.File(QStringLiteral("nuovo.rpt"));
        teacher.Host.ExpectFile(QStringLiteral("Salva"), file);
        log.mnuSalva.OnClick();
        const QByteArray heading = ToCodePage(MLSTesto(QStringLiteral("0074")));
        QCOMPARE(teacher.Content(QStringLiteral("nuovo.rpt")),
                 "Niccol\xF2\r\n" + heading +
                     "21/11/2026\r\n 3 \r\nVero, o falso\r\n1\r\n0\r\n0\r\n\r\n\r\n\r\n\r\n\r\n");
        const FileQuestion &asked = teacher.Host.LastFileQuestion;
        QVERIFY(!asked.Open);
        QCOMPARE(asked.Pattern, QStringLiteral("*.rpt"));
        QCOMPARE(asked.Extension, QStringLiteral("rpt"));
        QVERIFY(asked.ProposedName.isEmpty());
        QCOMPARE(QDir::cleanPath(asked.StartFolder),
                 QDir::cleanPath(teacher.File(Settings + QStringLiteral("dati/Niccolò"))));
        QVERIFY(QFileInfo(asked.StartFolder).isDir());
        QVERIFY(teacher.Host.DriveHas(QStringLiteral("ImpostazioniProgrammiTesmi/leggimi.txt")));
    }

    void aDateInDigitsOfAnotherScriptIsKeptInLatinOnes()
    {
        Teacher teacher;
        teacher.Host.TodayNow = QString::fromUtf8("٢١/١١/٢٠٢٦");
        FormEserciziEseguiti &log = teacher.OpenLog();
        QVERIFY(log.Label2.Caption().endsWith(teacher.Host.TodayNow));
        teacher.Host.ExpectFile(QStringLiteral("Salva"), teacher.File(QStringLiteral("n.rpt")));
        log.mnuSalva.OnClick();
        QVERIFY(teacher.Content(QStringLiteral("n.rpt")).contains("21/11/2026\r\n 1 \r\n"));
    }

    void aLogWithoutExercisesIsFourLines()
    {
        Teacher teacher;
        FormEserciziEseguiti &log = teacher.OpenLog();
        teacher.Host.ExpectFile(QStringLiteral("Salva"), teacher.File(QStringLiteral("n.rpt")));
        log.mnuSalva.OnClick();
        QVERIFY(teacher.Content(QStringLiteral("n.rpt")).endsWith("\r\n 1 \r\n\r\n"));
        QCOMPARE(teacher.Content(QStringLiteral("n.rpt")).count('\n'), qsizetype{4});
    }

    void cancellingASaveTellsThatItFailed()
    {
        Teacher teacher;
        FormEserciziEseguiti &log = teacher.OpenLog();
        teacher.Host.ExpectFile(QStringLiteral("Salva"), {});
        teacher.ExpectError("0078");
        log.mnuSalva.OnClick();
    }

    void aNameThatCannotBeAFolderTellsThatSavingFailed()
    {
        Teacher teacher;
        NomeUtente = QStringLiteral("a|b");
        FormEserciziEseguiti &log = teacher.OpenLog();
        teacher.ExpectError("0078");
        log.mnuSalva.OnClick();
    }

    void withoutTheFolderOfDataSavingTellsThatItFailed()
    {
        Teacher teacher;
        QVERIFY(QDir().rmdir(teacher.File(Settings + QStringLiteral("dati"))));
        FormEserciziEseguiti &log = teacher.OpenLog();
        teacher.ExpectError("0078");
        log.mnuSalva.OnClick();
    }

    void aReadOnlyFolderKeepsTheEarlierReport()
    {
        Teacher teacher;
        Teacher::DoExercise("Insiemi", "1", "1", "1");
        const QString name = Settings + QStringLiteral("dati/Niccolò/vecchio.rpt");
        teacher.Host.WriteDriveFile(name, "earlier");
        const QString file = teacher.File(name);
        QFile::setPermissions(QFileInfo(file).path(), QFile::ReadOwner | QFile::ExeOwner |
                                                          QFile::ReadOther | QFile::ExeOther);
        QFile::setPermissions(file, QFile::ReadOwner | QFile::ReadOther);
        QFile::setPermissions(teacher.Host.Drive.path(), QFile::Permissions(0x7755));
        FormEserciziEseguiti &log = teacher.OpenLog();
        const QByteArray said = AsOrdinaryUser([&]() -> QByteArray {
            QFile plain(file);
            if (plain.open(QIODevice::WriteOnly))
                return "a plain write is possible";
            teacher.Host.ExpectFile(QStringLiteral("Salva"), file);
            teacher.ExpectError("0078");
            teacher.Host.TakeEvents();
            log.mnuSalva.OnClick();
            if (!teacher.Host.Events.contains(QStringLiteral("box ") +
                                              MLSTesto(QStringLiteral("0078"))))
                return "no box";
            teacher.Host.ExpectFile(QStringLiteral("Salva"),
                                    QFileInfo(file).path() + QStringLiteral("/nuovo.rpt"));
            teacher.ExpectError("0078");
            log.mnuSalva.OnClick();
            return {};
        });
        QCOMPARE(said, QByteArray());
        QCOMPARE(teacher.Host.DriveFile(name), QByteArray("earlier"));
        QCOMPARE(QDir(QFileInfo(file).path()).entryList(QDir::Files),
                 QStringList{QStringLiteral("vecchio.rpt")});
        QFile::setPermissions(QFileInfo(file).path(), QFile::Permissions(0x7755));
    }

    // A limit on the size of files stands for a disk that is full.
    void aFullDiskKeepsTheEarlierReportAndLeavesNoHalfOne()
    {
        Teacher teacher;
        for (int i = 0; i < 100; ++i)
            Teacher::DoExercise("Trova gli intrusi", "1", "1", "1");
        const QString earlier = QStringLiteral("vecchio.rpt");
        teacher.Host.WriteDriveFile(earlier, "earlier");
        FormEserciziEseguiti &log = teacher.OpenLog();
        rlimit before{};
        QCOMPARE(getrlimit(RLIMIT_FSIZE, &before), 0);
        rlimit small = before;
        small.rlim_cur = 1000;
        const auto handler = std::signal(SIGXFSZ, SIG_IGN);
        QCOMPARE(setrlimit(RLIMIT_FSIZE, &small), 0);
        for (const QString &name : {earlier, QStringLiteral("nuovo.rpt")}) {
            teacher.Host.ExpectFile(QStringLiteral("Salva"), teacher.File(name));
            teacher.ExpectError("0078");
            log.mnuSalva.OnClick();
        }
        setrlimit(RLIMIT_FSIZE, &before);
        std::signal(SIGXFSZ, handler);
        QCOMPARE(teacher.Content(earlier), QByteArray("earlier"));
        QVERIFY(!teacher.Host.DriveHas(QStringLiteral("nuovo.rpt")));
    }

    // --- Opening ---

    void aReportWithoutRowsOpensCleanly()
    {
        Teacher teacher;
        Teacher::DoExercise("Insiemi", "1", "1", "1");
        const FormEserciziEseguiti &log =
            teacher.OpenReport("Anna\r\nData\r\n 1 \r\nUltima, riga\r\n", true);
        QCOMPARE(log.Label1.Caption(), QStringLiteral("Anna"));
        QCOMPARE(log.Label2.Caption(), QStringLiteral("Data"));
        QCOMPARE(log.Label3.Caption(), QStringLiteral("Ultima, riga"));
        QCOMPARE(log.MSFlexGrid1.Rows(), 1);
        QCOMPARE(log.MSFlexGrid1.TextMatrix(0, 1), MLSTesto(QStringLiteral("0076")));
        QCOMPARE(log.MSFlexGrid1.TextMatrix(0, 4), QStringLiteral(" Errati"));
        // The log itself is as it was.
        QCOMPARE(EserciziEseguiti(1, 0), QStringLiteral("Insiemi"));
        QCOMPARE(NumeroEserciziEseguiti, int16_t{2});
        const FileQuestion &asked = teacher.Host.LastFileQuestion;
        QVERIFY(asked.Open);
        QCOMPARE(QDir::cleanPath(asked.StartFolder).toLower(),
                 QDir::cleanPath(teacher.File(Settings + QStringLiteral("dati"))).toLower());
    }

    void aReportOfOurOwnShowsItsHeadingItsCountAndItsFirstRow()
    {
        Teacher teacher;
        Teacher::DoExercise("Vero o falso", "1", "5", "6");
        {
            FormEserciziEseguiti &log = teacher.OpenLog();
            teacher.Host.ExpectFile(QStringLiteral("Salva"), teacher.File(QStringLiteral("s.rpt")));
            log.mnuSalva.OnClick();
        }
        DropForms();
        const FormEserciziEseguiti &log =
            teacher.OpenReport(teacher.Content(QStringLiteral("s.rpt")), false);
        QCOMPARE(log.Label1.Caption(), QStringLiteral("Niccolò"));
        QCOMPARE(log.MSFlexGrid1.Rows(), 3);
        QCOMPARE(Row(log.MSFlexGrid1, 1),
                 (QStringList{QStringLiteral("1"), QStringLiteral("Vero o falso"),
                              QStringLiteral("1"), QStringLiteral("5"), QStringLiteral("6")}));
        QCOMPARE(Row(log.MSFlexGrid1, 2), (QStringList{{}, {}, {}, {}, {}}));
        QCOMPARE(log.Label3.Caption(), QString());
    }

    void aCommaCutsTheFirstTwoLinesSoThatTheCountFails()
    {
        Teacher teacher;
        const FormEserciziEseguiti &log =
            teacher.OpenReport("Anna, di Prova\r\nData\r\n 1 \r\nFine\r\n", false);
        QCOMPARE(log.Label1.Caption(), QStringLiteral("Anna"));
        QCOMPARE(log.Label2.Caption(), QStringLiteral("di Prova"));
    }

    // What was read before the fault shows; the log that was open has two rows.
    void whatIsNoReportIsToldAndChangesNothing_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<int>("rows");
        QTest::newRow("empty") << QByteArray() << 3;
        QTest::newRow("one line") << QByteArray("Anna\r\n") << 3;
        QTest::newRow("no number") << QByteArray("Anna\r\nData\r\nmolte\r\n") << 3;
        QTest::newRow("no count") << QByteArray("Anna\r\nData\r\n\r\n") << 3;
        QTest::newRow("more rows than any log")
            << "Anna\r\nData\r\n 10001 \r\n" + QByteArray("x\r\n").repeated(100) << 3;
        QTest::newRow("as many rows as can be")
            << "Anna\r\nData\r\n 10000 \r\n" + QByteArray("x\r\n").repeated(100) << 10000;
        QTest::newRow("beyond 32 bits") << QByteArray("Anna\r\nData\r\n 99999999999 \r\n") << 3;
        QTest::newRow("beyond all") << QByteArray("Anna\r\nData\r\n 1e300 \r\n") << 3;
        QTest::newRow("below nought") << QByteArray("Anna\r\nData\r\n-3 \r\nFine\r\n") << 3;
        QTest::newRow("nought") << QByteArray("Anna\r\nData\r\n 0 \r\nFine\r\n") << 3;
        QTest::newRow("ends in a row") << QByteArray("Anna\r\nData\r\n 5 \r\nuno\r\n2\r\n") << 5;
        QTest::newRow("no last line") << QByteArray("Anna\r\nData\r\n 1 \r\n") << 1;
        QTest::newRow("two bytes a letter") << QByteArray("\xFF\xFE"
                                                          "A\0n\0\r\0\n\0"
                                                          "1\0\r\0\n\0"
                                                          "1\0\r\0\n\0",
                                                          18)
                                            << 3;
        QTest::newRow("open quote") << QByteArray("\"Anna\r\nData\r\n 1 \r\nFine\r\n") << 3;
        QByteArray noise;
        uint32_t seed = 1;
        for (int i = 0; i < 20000; ++i) {
            seed = seed * 1664525U + 1013904223U;
            noise.append(static_cast<char>(seed >> 24));
        }
        QTest::newRow("noise") << noise << 3;
        QTest::newRow("noughts") << QByteArray(10000, '\0') << 3;
        QTest::newRow("too large") << "Anna\r\nData\r\n 1 \r\n" + QByteArray(5'000'000, 'x') << 3;
    }
    void whatIsNoReportIsToldAndChangesNothing()
    {
        QFETCH(QByteArray, content);
        QFETCH(int, rows);
        Teacher teacher;
        Teacher::DoExercise("Insiemi", "1", "1", "1");
        QElapsedTimer timer;
        timer.start();
        FormEserciziEseguiti &log = teacher.OpenReport(content, false);
        QVERIFY(timer.elapsed() < 5000);
        QCOMPARE(log.MSFlexGrid1.Rows(), rows);
        QCOMPARE(log.MSFlexGrid1.TextMatrix(0, 1), MLSTesto(QStringLiteral("0076")));
        QCOMPARE(log.Label3.Caption(), QString());
        QCOMPARE(teacher.Content(QStringLiteral("prova.rpt")), content);
        QCOMPARE(EserciziEseguiti(1, 0), QStringLiteral("Insiemi"));
        QCOMPARE(NumeroEserciziEseguiti, int16_t{2});
        // The next opening is none the worse for it.
        teacher.Host.WriteDriveFile(QStringLiteral("buono.rpt"),
                                    "Berta\r\nOggi\r\n 1 \r\nFine\r\n");
        teacher.Host.ExpectFile(QStringLiteral("Apri"), teacher.File(QStringLiteral("buono.rpt")));
        log.mnuApri.OnClick();
        QCOMPARE(log.Label1.Caption(), QStringLiteral("Berta"));
        QCOMPARE(log.MSFlexGrid1.Rows(), 1);
        QCOMPARE(log.MSFlexGrid1.TextMatrix(0, 1), MLSTesto(QStringLiteral("0076")));
    }

    void aReportWhoseOpeningFailedIsNotHeldOpen()
    {
        Teacher teacher;
        const auto isOpen = [&] {
            for (const QFileInfo &file : QDir(QStringLiteral("/proc/self/fd")).entryInfoList())
                if (file.symLinkTarget().endsWith(QStringLiteral("prova.rpt")))
                    return true;
            return false;
        };
        teacher.OpenReport("Anna\r\nData\r\n 3 \r\nuno\r\n2\r\n", false);
        QVERIFY(!isOpen());
    }

    void aReportInTheWidthOfUnicodeShowsItsLettersAsTheyAreRead()
    {
        Teacher teacher;
        const FormEserciziEseguiti &log =
            teacher.OpenReport("Nicc\xC3\xB2\r\nData\r\n 1 \r\nFine\r\n", true);
        QCOMPARE(log.Label1.Caption(), QStringLiteral("NiccÃ²"));
    }

    void cancellingAnOpeningEmptiesTheTableAndTells()
    {
        Teacher teacher;
        Teacher::DoExercise("Insiemi", "1", "1", "1");
        FormEserciziEseguiti &log = teacher.OpenLog();
        teacher.Host.ExpectFile(QStringLiteral("Apri"), {});
        teacher.ExpectError("0077");
        log.mnuApri.OnClick();
        QCOMPARE(log.MSFlexGrid1.Rows(), 3);
        QCOMPARE(log.MSFlexGrid1.TextMatrix(1, 1), QString());
        QCOMPARE(log.MSFlexGrid1.TextMatrix(0, 1), MLSTesto(QStringLiteral("0076")));
    }

    void aReportThatIsNotThereOrNoFileIsTold()
    {
        Teacher teacher;
        FormEserciziEseguiti &log = teacher.OpenLog();
        QDir(teacher.Host.Drive.path()).mkdir(QStringLiteral("cartella.rpt"));
        for (const char *name : {"manca.rpt", "cartella.rpt"}) {
            teacher.Host.ExpectFile(QStringLiteral("Apri"),
                                    teacher.File(QString::fromLatin1(name)));
            teacher.ExpectError("0077");
            log.mnuApri.OnClick();
        }
        teacher.Host.ExpectFile(QStringLiteral("Apri"), QStringLiteral("/dev/zero"));
        teacher.ExpectError("0077");
        log.mnuApri.OnClick();
    }

    void theFolderOfDataIsMadeForOpening()
    {
        Teacher teacher;
        QVERIFY(QDir().rmdir(teacher.File(Settings + QStringLiteral("dati"))));
        FormEserciziEseguiti &log = teacher.OpenLog();
        teacher.Host.ExpectFile(QStringLiteral("Apri"), {});
        teacher.ExpectError("0077");
        log.mnuApri.OnClick();
        QVERIFY(teacher.Host.DriveHas(Settings + QStringLiteral("Dati")));
    }

    // --- The printout ---

    void aNoToTheQuestionPrintsNothing()
    {
        Teacher teacher;
        FormEserciziEseguiti &log = teacher.OpenLog();
        teacher.Host.ExpectBox(Box{.Text = MLSTesto(QStringLiteral("0079")),
                                   .Title = Boxes,
                                   .Icon = BoxIcon::Question,
                                   .Buttons = BoxButtons::YesNo},
                               BoxAnswer::No);
        log.mnuStampa.OnClick();
        QVERIFY(teacher.Host.Printer.Calls.isEmpty());
    }

    // The document that is printed; the box of a failure when one is expected.
    FakeDocument Printed(Teacher &teacher, FormEserciziEseguiti &log, bool fails = false)
    {
        teacher.Host.ExpectBox(MLSTesto(QStringLiteral("0079")), BoxAnswer::Yes);
        teacher.Host.ExpectBox(Box{.Text = MLSTesto(QStringLiteral("0080")),
                                   .Title = Boxes,
                                   .Icon = BoxIcon::Information});
        if (fails)
            teacher.ExpectError("0098");
        log.mnuStampa.OnClick();
        return teacher.Host.Printer.Documents.isEmpty() ? FakeDocument()
                                                        : teacher.Host.Printer.Documents.last();
    }

    void thePageHasTheHeadingAndBelowItTheTable()
    {
        Teacher teacher;
        Teacher::DoExercise("Vero o falso", "1", "5", "6");
        FormEserciziEseguiti &log = teacher.OpenLog();
        const FakeDocument document = Printed(teacher, log);
        QVERIFY(document.Ended);
        QCOMPARE(document.Mode.Orientation, int16_t{2});
        QCOMPARE(document.Pages.size(), qsizetype{1});
        const FakePage &page = document.Pages.first();
        QCOMPARE(page.Texts.at(0).Text, QStringLiteral("Niccolò"));
        QCOMPARE(page.Texts.at(1).Text, QStringLiteral("    Niccolò"));
        QCOMPARE(page.Texts.at(1).Font.Size, 16.0);
        QCOMPARE(page.Texts.at(2).Text, QStringLiteral("    ") + log.Label2.Caption());
        QCOMPARE(page.Texts.at(2).Font.Size, 14.0);
        QCOMPARE(page.Texts.last().Font.Size, 12.0);
        const double foot = page.Texts.at(3).Y; // the empty line under the heading
        double top = 1e9;
        double right = 0;
        for (const PageLine &line : page.Lines) {
            top = std::min({top, line.Y1, line.Y2});
            right = std::max({right, line.X1, line.X2});
        }
        QVERIFY(top > foot);
        QVERIFY(right <= 280 * 1440 / 25.4); // the sheet across
        QStringList texts;
        for (const PageText &text : page.Texts)
            texts << text.Text;
        QVERIFY(texts.contains(QStringLiteral("Vero o falso")));
        QVERIFY(texts.contains(QStringLiteral(" Esatti")));
    }

    void theTableHasItsPensItsLinesAndTheWidthsOfTheScreen()
    {
        Teacher teacher;
        FakeSheet sheet{2000, 3000, 4000, 6000}; // room for any table
        teacher.Host.Printer.Sheets[QStringLiteral("Prima")] = sheet;
        Teacher::DoExercise("Vero o falso", "1", "5", "6");
        FormEserciziEseguiti &log = teacher.OpenLog();
        const FakePage page = Printed(teacher, log).Pages.first();
        const Drawn drawn = Table(page, sheet);
        QCOMPARE(page.Lines.size(), qsizetype{4 + 2 + 4});
        QCOMPARE(drawn.FrameLines, 4);
        QVERIFY(drawn.WholeLines);
        QCOMPARE(drawn.Left, 10 * Dot); // no half of the frame's pen falls off
        // From the foot of the heading: its four lines, and the offset of 2.
        const double heading = LineHeight({QStringLiteral("arial"), 10}) +
                               LineHeight({QStringLiteral("arial"), 16}) +
                               2 * LineHeight({QStringLiteral("arial"), 14});
        QCOMPARE(drawn.Top, heading + 2);
        const Grid &grid = log.MSFlexGrid1;
        const double row = LineHeight(grid.Font()) + 2 * Gap;
        QCOMPARE(drawn.Across, (QList<double>{drawn.Top + row, drawn.Top + 2 * row}));
        QCOMPARE(drawn.Bottom, drawn.Top + 3 * row);
        QList<double> down;
        QList<double> texts;
        double x = drawn.Left;
        for (int column = 0; column < grid.Cols(); ++column) {
            texts << x + Gap;
            x += grid.ColWidth(column) + 2 * Gap;
            down << x;
        }
        down.removeLast();
        QCOMPARE(drawn.Down, down);
        QCOMPARE(drawn.Right, x + Gap);
        QStringList seen;
        for (const PageText &text : page.Texts)
            if (text.Y - Margin == drawn.Top + row + Gap) {
                QCOMPARE(text.X - Margin, texts.at(seen.size()));
                QCOMPARE(text.Font.Name, grid.Font().Name);
                QCOMPARE(text.Font.Size, grid.Font().Size);
                seen << text.Text;
            }
        QCOMPARE(seen,
                 QStringList({QStringLiteral("1"), QStringLiteral("Vero o falso"),
                              QStringLiteral("1"), QStringLiteral("5"), QStringLiteral("6")}));
    }

    void onANarrowSheetTheColumnsAreNarrowedTogetherAndAMarginIsKept()
    {
        Teacher teacher;
        const FakeSheet sheet{100, 150, 1000, 1500};
        teacher.Host.Printer.Sheets[QStringLiteral("Prima")] = sheet;
        for (int row = 1; row <= 30; ++row)
            EserciziEseguiti(row, 0) = QStringLiteral("Un titolo che non finisce più");
        NumeroEserciziEseguiti = 30;
        FormEserciziEseguiti &log = teacher.OpenLog();
        const FakeDocument document = Printed(teacher, log);
        QVERIFY(document.Pages.size() > 1);
        for (qsizetype number = 0; number < document.Pages.size(); ++number) {
            const FakePage &page = document.Pages.at(number);
            const Drawn drawn = Table(page, sheet);
            QVERIFY(drawn.Outermost > Margin - 0.01);
            for (const PageText &text : page.Texts) {
                if (text.Text.trimmed().isEmpty())
                    continue;
                QVERIFY(text.X >= Margin && text.Y >= Margin);
                QVERIFY(text.Y + LineHeight(text.Font) <= Twips(sheet.HorzSize) - Margin + 0.01);
            }
            // Up to the margin on the right, and on further pages from the margin above.
            QVERIFY(std::abs(drawn.Right + 10 * Dot - (Twips(sheet.VertSize) - 2 * Margin)) < 0.01);
            if (number > 0)
                QCOMPARE(drawn.Top, 10 * Dot);
            double x = drawn.Left;
            double scale = 0;
            for (qsizetype column = 0; column < drawn.Down.size(); ++column) {
                const double width = drawn.Down.at(column) - x - 2 * Gap;
                const double now = width / log.MSFlexGrid1.ColWidth(static_cast<int>(column));
                if (column > 0)
                    QVERIFY(std::abs(now - scale) < 1e-6);
                scale = now;
                x = drawn.Down.at(column);
                for (const PageText &text : page.Texts)
                    if (std::abs(text.X - Margin - (x - width - Gap)) < 0.01)
                        QVERIFY(
                            QFontMetricsF(FontInTwips(text.Font)).horizontalAdvance(text.Text) <=
                            width);
            }
            QVERIFY(scale > 0 && scale < 1);
        }
    }

    void aLongTableGoesOnWithItsHeaderOnEveryPage()
    {
        Teacher teacher;
        for (int row = 1; row <= 500; ++row)
            EserciziEseguiti(row, 0) = QStringLiteral("Riga %1").arg(row);
        NumeroEserciziEseguiti = 500;
        FormEserciziEseguiti &log = teacher.OpenLog();
        const FakeDocument document = Printed(teacher, log);
        QVERIFY(document.Pages.size() > 5);
        QStringList rows;
        for (const FakePage &page : document.Pages) {
            int headers = 0;
            for (const PageText &text : page.Texts) {
                headers += text.Text == MLSTesto(QStringLiteral("0075")) ? 1 : 0;
                QVERIFY(text.Y >= 0 && text.Y < 200 * 1440 / 25.4);
                if (text.Text.startsWith(QStringLiteral("Riga ")))
                    rows << text.Text;
            }
            for (const PageLine &line : page.Lines)
                QVERIFY(std::max(line.Y1, line.Y2) <= 200 * 1440 / 25.4);
            QCOMPARE(headers, 1);
        }
        QCOMPARE(rows.size(), qsizetype{500});
        QCOMPARE(rows.last(), QStringLiteral("Riga 500"));
    }

    void aLongTitleIsCutAtItsColumnWithoutAMark()
    {
        Teacher teacher;
        const QByteArray title = QByteArray("Titolo lungo ").repeated(20);
        Teacher::DoExercise(title.constData(), "1", "5", "6");
        FormEserciziEseguiti &log = teacher.OpenLog();
        const FakeDocument document = Printed(teacher, log);
        const FakePage &page = document.Pages.first();
        const auto cut = std::find_if(page.Texts.begin(), page.Texts.end(), [](const auto &text) {
            return text.Text.startsWith(QStringLiteral("Titolo"));
        });
        QVERIFY(cut != page.Texts.end());
        // The line between the columns that comes next to the right of it, less the room beside it.
        double end = 1e9;
        for (const PageLine &line : page.Lines)
            if (line.X1 == line.X2 && line.X1 > cut->X)
                end = std::min(end, line.X1 - 60);
        QVERIFY(end < 1e9);
        const QString whole = QString::fromLatin1(title);
        const QFontMetricsF letters(FontInTwips(cut->Font));
        const auto length = cut->Text.size();
        QVERIFY(length < whole.size());
        QCOMPARE(cut->Text, whole.left(length));
        QVERIFY(cut->X + letters.horizontalAdvance(cut->Text) <= end + 0.01);
        QVERIFY(cut->X + letters.horizontalAdvance(whole.left(length + 1)) > end + 0.01);
    }

    void aPrinterThatFailsIsToldWhereverItFails_data()
    {
        QTest::addColumn<QString>("step");
        for (const char *step :
             {"default", "CreateDevice", "StartDocument", "StartPage", "EndPage", "EndDocument"})
            QTest::newRow(step) << QString::fromLatin1(step);
    }
    void aPrinterThatFailsIsToldWhereverItFails()
    {
        QFETCH(QString, step);
        Teacher teacher;
        FormEserciziEseguiti &log = teacher.OpenLog();
        if (step == QStringLiteral("default"))
            teacher.Host.Printer.Default.clear();
        else
            teacher.Host.Printer.Answers[step] = {0};
        const FakeDocument document = Printed(teacher, log, true);
        QVERIFY(!document.Ended);
        QCOMPARE(teacher.Host.Printer.Devices, 0);
        QCOMPARE(log.MousePointer(), MousePointer::Default);
    }

    void theHourglassStandsWhileTheLogIsPrinted()
    {
        Teacher teacher;
        FormEserciziEseguiti &log = teacher.OpenLog();
        teacher.Host.TakeEvents();
        Printed(teacher, log);
        const QStringList pointers =
            teacher.Host.TakeEvents().filter(QStringLiteral("FormEserciziEseguiti.MousePointer="));
        QCOMPARE(pointers, QStringList({QStringLiteral("FormEserciziEseguiti.MousePointer=11"),
                                        QStringLiteral("FormEserciziEseguiti.MousePointer=0")}));
    }
};

MORLENE_TEST(TestFormEserciziEseguiti)
#include "test_form_esercizi_eseguiti.moc"
