// The log as a file: what is written, and what is told when it cannot be.
#include "platform/files/files.h"
#include "results/teacher.h"
#include "support/registered_tests.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTest>
#include <csignal>

#ifndef Q_OS_WIN
#include "support/as_user.h"

#include <sys/resource.h>
#endif

using namespace platform;

class TestSaveReport : public QObject {
    Q_OBJECT

private Q_SLOTS:
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
#ifdef Q_OS_WIN
        QSKIP("Rights are others there");
#else
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
#endif
    }

    // A limit on the size of files stands for a disk that is full.
    void aFullDiskKeepsTheEarlierReportAndLeavesNoHalfOne()
    {
#ifdef Q_OS_WIN
        QSKIP("No limit there stands for a full disk");
#else
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
#endif
    }
};

MORLENE_TEST(TestSaveReport)
#include "test_save_report.moc"
