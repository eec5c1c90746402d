// The four ways from an exercise to paper.
#include "exercises/form_es1.h"
#include "language/language.h"
#include "printing/frm_stampa.h"
#include "printing/print_fields.h"
#include "support/exercise_fixture.h"
#include "support/registered_tests.h"

#include <QAction>
#include <QImage>
#include <QMenu>
#include <QPixmap>
#include <QTest>

Q_DECLARE_METATYPE(FakeSheet)

using namespace platform;

namespace {

class Child : public Player {
public:
    Child()
    {
        AzzeraStampa();
        Host.Seed(1);
        Host.Printer.RealPixels = true;
    }
    ~Child() { AzzeraStampa(); }
    Child(const Child &) = delete;
    Child &operator=(const Child &) = delete;
};

// Something to choose from and to close.
class Pictures : public Form {
public:
    Pictures() : Form("Form1", 3000, 3000) {}
};

void Press(const FormEs1 &exercise, Qt::Key withControl)
{
    QTest::keyClick(exercise.Window(), withControl, Qt::ControlModifier);
}

} // namespace

class TestQuickPrint : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aQuickPrintKeepsTaskAndCounters()
    {
        Child child;
        FormEs1 &exercise = child.Open<FormEs1>();
        Esatti = 3;
        const QString before = exercise.Label1.Caption();
        Press(exercise, Qt::Key_S);
        QCOMPARE(Esatti, 3);
        QCOMPARE(exercise.Label1.Caption(), before);
        QCOMPARE(child.Host.Printer.Documents.size(), qsizetype{1});
        const FakeDocument &document = child.Host.Printer.Documents.first();
        QVERIFY(document.Ended);
        QCOMPARE(document.Printer, QStringLiteral("Prima"));
        QCOMPARE(document.Mode.Orientation, int16_t{0}); // the printer's own
        QCOMPARE(document.Pages.size(), qsizetype{1});
    }

    void aQuickPrintShowsTheHourglassAndThenTheFormerPointer()
    {
        Child child;
        FormEs1 &exercise = child.Open<FormEs1>();
        exercise.SetMousePointer(MousePointer::Custom);
        child.Host.TakeEvents();
        exercise.mnuStEserc.OnClick();
        QCOMPARE(child.Host.TakeEvents().filter(QStringLiteral("FormEs1.MousePointer=")),
                 QStringList({QStringLiteral("FormEs1.MousePointer=11"),
                              QStringLiteral("FormEs1.MousePointer=99")}));
    }

    // A sheet of 200 mm with 20 pixels each; 1366 logical pixels are 361 mm.
    void aQuickPrintBeginsAtTheCornerAndIsMadeToFit()
    {
        Child child;
        FormEs1 &exercise = child.Open<FormEs1>();
        Press(exercise, Qt::Key_S);
        const FakePage &page = child.Host.Printer.Documents.first().Pages.first();
        const DeviceRectangle place = page.Rectangles.first();
        QCOMPARE(place.X, 0);
        QCOMPARE(place.Y, 0);
        QCOMPARE(place.Width, 4000);
        QCOMPARE(place.Height, qRound(4000 * exercise.ScaleHeight() / exercise.ScaleWidth()));
        // The client area, without the menu bar.
        QCOMPARE(page.Bitmaps.first().Height, exercise.Client()->height());
    }

    void aQuickPrintOfASmallWindowHasTheScreensSize()
    {
        Child child;
        child.Host.ScreenSizeNow = {480, 240};
        FormEs1 &exercise = child.Open<FormEs1>();
        Press(exercise, Qt::Key_S);
        const DeviceRectangle place =
            child.Host.Printer.Documents.first().Pages.first().Rectangles.first();
        QCOMPARE(place.Width, 2540); // 5 inches
        QCOMPARE(place.Height, qRound(exercise.Client()->height() / 96.0 * 25.4 * 20));
    }

    void aQuickPrintThatFailsIsToldAndTheTaskGoesOn_data()
    {
        QTest::addColumn<QString>("step");
        for (const char *step : {"default", "CreateDevice", "Allocate", "ReadRows", "StartDocument",
                                 "StartPage", "StretchBitmap", "EndPage", "EndDocument"})
            QTest::newRow(step) << QString::fromLatin1(step);
    }
    void aQuickPrintThatFailsIsToldAndTheTaskGoesOn()
    {
        QFETCH(QString, step);
        Child child;
        FormEs1 &exercise = child.Open<FormEs1>();
        if (step == QStringLiteral("default"))
            child.Host.Printer.Default.clear();
        else
            child.Host.Printer.Answers[step] = {0};
        child.Host.ExpectBox(
            Box{.Text = MLSTesto(QStringLiteral("0098")), .Title = {}, .Icon = BoxIcon::Critical});
        const QString before = exercise.Label1.Caption();
        Press(exercise, Qt::Key_S);
        QCOMPARE(exercise.Label1.Caption(), before);
        QCOMPARE(child.Host.Printer.Devices, 0);
        QCOMPARE(child.Host.Printer.Allocated(), 0);
    }

    void theDialogOpensAcrossOrUprightWithTheSameNumbersOnEveryScreen_data()
    {
        QTest::addColumn<bool>("across");
        QTest::addColumn<int>("width");
        QTest::addColumn<FakeSheet>("sheet");
        const FakeSheet small{120, 130, 2400, 2600};
        QTest::newRow("across") << true << 1366 << FakeSheet();
        QTest::newRow("upright") << false << 1366 << FakeSheet();
        QTest::newRow("upright, large") << false << 1920 << FakeSheet();
        QTest::newRow("upright, small sheet") << false << 1366 << small;
        QTest::newRow("across, small sheet") << true << 1366 << small;
    }
    void theDialogOpensAcrossOrUprightWithTheSameNumbersOnEveryScreen()
    {
        QFETCH(bool, across);
        QFETCH(int, width);
        QFETCH(FakeSheet, sheet);
        Child child;
        child.Host.ScreenSizeNow = {width, 768};
        child.Host.Printer.Sheets[QStringLiteral("Prima")] = sheet;
        FormEs1 &exercise = child.Open<FormEs1>();
        child.Host.ExpectModal([&](Form &form) {
            auto &dialog = dynamic_cast<FrmStampa &>(form);
            QCOMPARE(dialog.txtPrX.Text(), QStringLiteral("10"));
            QCOMPARE(dialog.txtPrY.Text(), QStringLiteral("10"));
            QCOMPARE(dialog.txtPrW.Text(), QStringLiteral("100"));
            QCOMPARE(dialog.txtPrH.Text(), QStringLiteral("100"));
            QCOMPARE(Stampa.OrientamentoRichiesto, across ? 2 : 1);
            QCOMPARE(Stampa.TitoloStampa, QString());
            // No scale of the caller: the window's own twips.
            QCOMPARE(Stampa.LarghezzaOrigine, static_cast<float>(exercise.ScaleWidth()));
            // The whole window with its menu bar.
            QCOMPARE(Stampa.AltezzaImmagine, exercise.Window()->height());
            ClickOn(dialog.cmdStampa);
        });
        Press(exercise, across ? Qt::Key_O : Qt::Key_V);
        QCOMPARE(child.Host.Printer.Documents.first().Mode.Orientation,
                 across ? int16_t{2} : int16_t{1});
        QCOMPARE(child.Host.Printer.Documents.first().Title, QString());
    }

    void theExerciseBeginsAnewWhenTheDialogCloses_data()
    {
        QTest::addColumn<bool>("across");
        QTest::addColumn<bool>("printed");
        for (const bool across : {true, false})
            for (const bool printed : {true, false})
                QTest::addRow("%s, %s", across ? "across" : "upright",
                              printed ? "printed" : "given up")
                    << across << printed;
    }
    void theExerciseBeginsAnewWhenTheDialogCloses()
    {
        QFETCH(bool, across);
        QFETCH(bool, printed);
        Child child;
        FormEs1 &exercise = child.Open<FormEs1>();
        QTest::keyClick(exercise.Window(), Qt::Key_F2);
        const int16_t row = NumeroEserciziEseguiti;
        ClickOn(exercise.Command1(1 - exercise.IndiceEsatto));
        ClickOn(exercise.Command1(exercise.IndiceEsatto));
        QVERIFY(exercise.Command1(2).Enabled());
        const QImage task =
            exercise.Window()->grab().toImage().convertToFormat(QImage::Format_BGR888);
        child.Host.ExpectModal([&](Form &form) {
            auto &dialog = dynamic_cast<FrmStampa &>(form);
            child.Host.TakeEvents();
            ClickOn(printed ? dialog.cmdStampa : dialog.cmdChiudi);
        });
        Press(exercise, across ? Qt::Key_O : Qt::Key_V);
        QCOMPARE(child.Host.Printer.Documents.size(), qsizetype{printed ? 1 : 0});
        // On paper stands the task as it was.
        if (printed) {
            const Bitmap &page = child.Host.Printer.Documents.first().Pages.first().Bitmaps.first();
            // As pictures: what fills up a row is anything.
            const QImage sheet(reinterpret_cast<const uchar *>(page.Bits->constData()), page.Width,
                               page.Height, static_cast<int>(task.bytesPerLine()),
                               QImage::Format_BGR888);
            QCOMPARE(page.Bits->size(), task.sizeInBytes());
            QVERIFY(sheet == task);
        }
        QCOMPARE(exercise.StatusBar1.Panel(1), QStringLiteral("0 Esatti"));
        QCOMPARE(exercise.StatusBar1.Panel(2), QStringLiteral("0 Errati"));
        QCOMPARE(exercise.StatusBar1.Panel(3), QStringLiteral("1 Livello"));
        QVERIFY(!exercise.Command1(2).Enabled());
        QVERIFY(exercise.Command1(0).Enabled());
        QVERIFY(!child.Host.TakeEvents().filter(QStringLiteral("Label1.Caption=")).isEmpty());
        // What was lost has no row, and the level's tick stays.
        QCOMPARE(NumeroEserciziEseguiti, row);
        QCOMPARE(EserciziEseguiti(row, 1), QString());
        QVERIFY(exercise.mnuLiv(2).Checked());
    }

    void withoutAPrinterTheExerciseGoesOn()
    {
        Child child;
        FormEs1 &exercise = child.Open<FormEs1>();
        Esatti = 3;
        child.Host.Printer.Default.clear();
        child.Host.ExpectBox(QStringLiteral("Stampante di default non specificata."));
        Press(exercise, Qt::Key_O);
        QCOMPARE(Esatti, 3);
    }

    void figuresToColourStandBeforeTheExercise()
    {
        Child child;
        RegistraFinestra(QStringLiteral("Form1"), []() -> Form * { return new Pictures; });
        FormEs1 &exercise = child.Open<FormEs1>();
        QTest::keyClick(exercise.Window(), Qt::Key_F2);
        const int16_t row = NumeroEserciziEseguiti;
        ClickOn(exercise.Command1(exercise.IndiceEsatto));
        child.Host.ExpectModal([&](Form &form) {
            QCOMPARE(form.Name(), QStringLiteral("Form1"));
            QCOMPARE(exercise.StatusBar1.Panel(1), QStringLiteral("1 Esatti"));
            form.Unload();
        });
        Press(exercise, Qt::Key_P);
        QCOMPARE(exercise.StatusBar1.Panel(1), QStringLiteral("0 Esatti"));
        QCOMPARE(exercise.StatusBar1.Panel(3), QStringLiteral("1 Livello"));
        QVERIFY(!exercise.Command1(2).Enabled());
        QCOMPARE(NumeroEserciziEseguiti, row);
        QCOMPARE(EserciziEseguiti(row, 1), QString());
    }

    void theMenuWithOptionsHoldsTheTwoSheetsOnly()
    {
        Child child;
        FormEs1 &exercise = child.Open<FormEs1>();
        const auto *options = exercise.Window()->findChild<QMenu *>(QStringLiteral("mnuStPg"));
        QVERIFY(options != nullptr);
        QStringList entries;
        for (const QAction *entry : options->actions())
            entries << entry->text() + QLatin1Char(' ') + entry->shortcut().toString();
        QCOMPARE(entries, QStringList({QStringLiteral("foglio orizzontale Ctrl+O"),
                                       QStringLiteral("foglio verticale Ctrl+V")}));
    }
};

MORLENE_TEST(TestQuickPrint)
#include "test_quick_print.moc"
