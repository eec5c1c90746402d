// The log on paper.
#include "platform/printing/printer_font.h"
#include "results/teacher.h"
#include "support/registered_tests.h"

#include <QFont>
#include <QFontMetricsF>
#include <QTest>
#include <algorithm>
#include <cmath>

using namespace platform;

namespace {

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

// The document that is printed; the box of a failure when one is expected.
FakeDocument Printed(Teacher &teacher, FormEserciziEseguiti &log, bool fails = false)
{
    teacher.Host.ExpectBox(MLSTesto(QStringLiteral("0079")), BoxAnswer::Yes);
    teacher.Host.ExpectBox(Box{
        .Text = MLSTesto(QStringLiteral("0080")), .Title = Boxes, .Icon = BoxIcon::Information});
    if (fails)
        teacher.ExpectError("0098");
    log.mnuStampa.OnClick();
    return teacher.Host.Printer.Documents.isEmpty() ? FakeDocument()
                                                    : teacher.Host.Printer.Documents.last();
}

} // namespace

class TestPrintReport : public QObject {
    Q_OBJECT

private Q_SLOTS:
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

    void anOpenedReportIsPrintedWithItsLastLine()
    {
        Teacher teacher;
        FormEserciziEseguiti &log = teacher.OpenReport("Anna\r\nData\r\n 1 \r\nFine\r\n", true);
        const FakePage page = Printed(teacher, log).Pages.first();
        QCOMPARE(page.Texts.at(0).Text, QStringLiteral("Niccolò"));
        QCOMPARE(page.Texts.at(1).Text, QStringLiteral("    Anna"));
        QCOMPARE(page.Texts.at(1).Font.Name, QStringLiteral("arial"));
        QCOMPARE(page.Texts.at(2).Text, QStringLiteral("    Data"));
        QCOMPARE(page.Texts.at(3).Text, QStringLiteral("    "));
        const PageText &last = page.Texts.at(page.Texts.size() - 2);
        QCOMPARE(last.Text, QStringLiteral("    Fine"));
        QCOMPARE(last.Font.Size, 12.0);
        QCOMPARE(page.Texts.last().Text, QStringLiteral("    "));
        // Below the table.
        for (const PageLine &line : page.Lines)
            QVERIFY(std::max(line.Y1, line.Y2) <= last.Y);
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

MORLENE_TEST(TestPrintReport)
#include "test_print_report.moc"
