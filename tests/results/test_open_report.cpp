// A saved log as it is read again, which does not match how it is written, and files that are no
// log at all.
#include "results/teacher.h"
#include "support/application_folder.h"
#include "support/registered_tests.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QTest>

using namespace platform;

class TestOpenReport : public QObject {
    Q_OBJECT

private Q_SLOTS:
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
        QCOMPARE(asked.Pattern, QStringLiteral("*.rpt"));
        QCOMPARE(asked.Extension, QStringLiteral("rpt"));
        QVERIFY(asked.ProposedName.isEmpty());
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

    void theFirstHeadingSaysWhetherTheLogOrAReportIsShown()
    {
        Teacher teacher;
        const ApplicationFolder folder(teacher.Host);
        folder.WriteLanguage("[Strings]\r\n0075=Log\r\n0076=Report\r\n");
        LinguaCorrente = QStringLiteral("prova");
        QCOMPARE(teacher.OpenLog().MSFlexGrid1.TextMatrix(0, 1), QStringLiteral("Log"));
        DropForms();
        const FormEserciziEseguiti &log =
            teacher.OpenReport("Anna\r\nData\r\n 1 \r\nFine\r\n", true);
        QCOMPARE(log.MSFlexGrid1.TextMatrix(0, 1), QStringLiteral("Report"));
    }

    void theNextActivationShowsTheLogAgain()
    {
        Teacher teacher;
        Teacher::DoExercise("Insiemi", "1", "1", "1");
        FormEserciziEseguiti &log = teacher.OpenReport("Anna\r\nData\r\n 1 \r\nFine\r\n", true);
        log.OnActivate();
        QCOMPARE(log.Label1.Caption(), QStringLiteral("Niccolò"));
        QCOMPARE(log.Label3.Caption(), QString());
        QCOMPARE(log.MSFlexGrid1.Rows(), 3);
        QCOMPARE(log.MSFlexGrid1.TextMatrix(0, 1), MLSTesto(QStringLiteral("0075")));
        QCOMPARE(log.MSFlexGrid1.TextMatrix(1, 1), QStringLiteral("Insiemi"));
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
        teacher.OpenReport("Anna\r\nData\r\n 3 \r\nuno\r\n2\r\n", false);
#ifdef Q_OS_WIN
        // The system deletes no file that is open.
        QVERIFY(QFile::remove(teacher.File(QStringLiteral("prova.rpt"))));
#else
        const auto isOpen = [&] {
            for (const QFileInfo &file : QDir(QStringLiteral("/proc/self/fd")).entryInfoList())
                if (file.symLinkTarget().endsWith(QStringLiteral("prova.rpt")))
                    return true;
            return false;
        };
        QVERIFY(!isOpen());
#endif
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
#ifndef Q_OS_WIN
        teacher.Host.ExpectFile(QStringLiteral("Apri"), QStringLiteral("/dev/zero"));
        teacher.ExpectError("0077");
        log.mnuApri.OnClick();
#endif
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
};

MORLENE_TEST(TestOpenReport)
#include "test_open_report.moc"
