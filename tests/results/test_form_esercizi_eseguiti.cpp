// The table of the exercises that were done.
#include "results/teacher.h"
#include "support/registered_tests.h"

#include <QTest>

using namespace platform;

class TestFormEserciziEseguiti : public QObject {
    Q_OBJECT

private Q_SLOTS:
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
        QVERIFY(log.Label1.Font().Bold && log.Label2.Font().Bold && !log.Label3.Font().Bold);
        QCOMPARE(log.Left(), 0.0);
        QCOMPARE(log.Top(), 0.0);
        QCOMPARE(log.Width(), ScreenWidth());
        QCOMPARE(log.Height(), ScreenHeight());
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
};

MORLENE_TEST(TestFormEserciziEseguiti)
#include "test_form_esercizi_eseguiti.moc"
