// Tables: their texts, their limits, and what is seen of them; and numbers as a person writes them.
#include "platform/base/errors.h"
#include "platform/base/local_text.h"
#include "platform/base/numbers.h"
#include "platform/controls/grid.h"
#include "platform/controls/picture.h"
#include "platform/files/files.h"
#include "support/registered_tests.h"
#include "support/scripted_host.h"

#include <QAccessible>
#include <QDate>
#include <QFile>
#include <QHeaderView>
#include <QLocale>
#include <QRegularExpression>
#include <QTableView>
#include <QTest>

#include <climits>
#include <utility>

using namespace platform;

class TestGrid : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void textsStayWhereTheyHaveAPlace()
    {
        GridCells cells;
        cells.SetRows(3);
        cells.SetCols(2);
        cells.SetTextMatrix(1, 1, QStringLiteral("a"));
        cells.SetTextMatrix(2, 0, QStringLiteral("b"));
        cells.SetCols(3);
        QCOMPARE(cells.TextMatrix(1, 1), QStringLiteral("a"));
        cells.SetRows(2);
        cells.SetRows(3);
        QCOMPARE(cells.TextMatrix(1, 1), QStringLiteral("a"));
        QCOMPARE(cells.TextMatrix(2, 0), QString());
        cells.Clear();
        QCOMPARE(cells.TextMatrix(1, 1), QString());
        QCOMPARE(cells.Rows(), 3);
        QCOMPARE(cells.Cols(), 3);
    }

    void rowsHaveLimitsAndCellsMustBeThere()
    {
        GridCells cells;
        cells.SetRows(2);
        cells.SetCols(5);
        for (const int wrong : {-1, GridCells::MostRows + 1, 1'000'000, INT_MAX})
            QCOMPARE(Skipping([&] { cells.SetRows(wrong); }), int{InvalidPropertyValue});
        QCOMPARE(cells.Rows(), 2);
        for (const auto &[row, column] :
             {std::pair{2, 0}, std::pair{0, 5}, std::pair{-1, 0}, std::pair{0, -1}})
            QCOMPARE(Skipping([&, r = row, c = column] { cells.SetTextMatrix(r, c, {}); }),
                     int{InvalidArrayIndex});
        cells.SetRows(0);
        QCOMPARE(Skipping([&] { cells.TextMatrix(0, 0); }), int{InvalidArrayIndex});
    }

    void theFirstRowAndColumnAreHeadings()
    {
        ScriptedHost host;
        Form form("Finestra", 6000, 3000);
        Grid grid({form, "MSFlexGrid1"}, {0, 0, 6000, 3000});
        grid.SetCols(3);
        grid.SetRows(3);
        grid.SetTextMatrix(0, 1, QStringLiteral("Esercizio"));
        grid.SetTextMatrix(1, 0, QStringLiteral("1"));
        grid.SetTextMatrix(2, 2, QStringLiteral("ultima"));
        grid.SetColAlignment(1, CellAlignment::CenterTop);
        grid.SetColWidth(0, 300);
        grid.SetColWidth(2, 1500);
        const auto *view = static_cast<QTableView *>(grid.Widget());
        QCOMPARE(view->model()->rowCount(), 2);
        QCOMPARE(view->model()->columnCount(), 2);
        QCOMPARE(view->model()->headerData(0, Qt::Horizontal).toString(),
                 QStringLiteral("Esercizio"));
        QCOMPARE(view->model()->headerData(0, Qt::Vertical).toString(), QStringLiteral("1"));
        QCOMPARE(view->model()->index(1, 1).data().toString(), QStringLiteral("ultima"));
        QCOMPARE(view->model()->index(0, 0).data(Qt::TextAlignmentRole).toInt(),
                 int{Qt::AlignHCenter | Qt::AlignVCenter});
        QCOMPARE(view->model()->index(0, 1).data(Qt::TextAlignmentRole).toInt(),
                 int{Qt::AlignLeft | Qt::AlignVCenter});
        QCOMPARE(view->verticalHeader()->width(), 20);
        QCOMPARE(view->columnWidth(1), 100);
        QCOMPARE(Skipping([&] { grid.SetColWidth(3, 1); }), int{InvalidArrayIndex});
    }

    void aTableWithoutRowsShowsItsHeadingsOnly_data()
    {
        QTest::addColumn<int>("rows");
        QTest::newRow("the headings") << 1;
        QTest::newRow("nothing") << 0;
    }
    void aTableWithoutRowsShowsItsHeadingsOnly()
    {
        QFETCH(int, rows);
        ScriptedHost host;
        Form form("Finestra", 6000, 3000);
        Grid grid({form, "MSFlexGrid1"}, {0, 0, 6000, 3000});
        grid.SetCols(3);
        grid.SetRows(3);
        const auto *view = static_cast<QTableView *>(grid.Widget());
        QVERIFY(!view->isRowHidden(0));
        grid.SetRows(rows);
        for (int row = 0; row < view->model()->rowCount(); ++row)
            QVERIFY(view->isRowHidden(row));
        grid.SetRows(2);
        QVERIFY(!view->isRowHidden(0));
    }

    // A screen reader finds a heading by way of the first row's cell.
    void aScreenReaderFindsTheHeadingsOfAnEmptyTable()
    {
        QTest::failOnWarning(QRegularExpression(QStringLiteral(".")));
        ScriptedHost host;
        Form form("Finestra", 6000, 3000);
        Grid grid({form, "MSFlexGrid1"}, {0, 0, 6000, 3000});
        grid.SetCols(3);
        grid.SetRows(1);
        grid.SetTextMatrix(0, 2, QStringLiteral("Livello"));
        QAccessibleTableInterface *table =
            QAccessible::queryAccessibleInterface(grid.Widget())->tableInterface();
        QAccessibleInterface *cell = table->cellAt(0, 1);
        QVERIFY(cell != nullptr);
        const auto headings = cell->tableCellInterface()->columnHeaderCells();
        QCOMPARE(headings.size(), qsizetype{1});
        // The toolkit leaves it to who asked.
        const QAccessible::Id heading = QAccessible::registerAccessibleInterface(headings.first());
        QCOMPARE(headings.first()->text(QAccessible::Name), QStringLiteral("Livello"));
        QAccessible::deleteAccessibleInterface(heading);
    }

    void numbersHaveGroupsAndAtMostTwoDecimals()
    {
        QCOMPARE(FormatGrouped(1234.5), QStringLiteral("1,234.5"));
        QCOMPARE(FormatGrouped(12), QStringLiteral("12."));
        QCOMPARE(FormatGrouped(100), QStringLiteral("100."));
        QCOMPARE(FormatGrouped(0.129), QStringLiteral("0.13"));
        QCOMPARE(ToSingle(QStringLiteral("1,234.5")), 1234.5F);
        QCOMPARE(ToSingle(QStringLiteral("12.")), 12.0F);
        for (const char *wrong : {"", "n", "1n", "."})
            QCOMPARE(Skipping([&] { ToSingle(QString::fromLatin1(wrong)); }), int{TypeMismatch});
    }

    void datesAreNumbersInTheOrderOfThePlace_data()
    {
        QTest::addColumn<QString>("place");
        QTest::addColumn<QString>("date");
        QTest::newRow("none") << QStringLiteral("C") << QStringLiteral("05/11/2026");
        QTest::newRow("Italy") << QStringLiteral("it_IT") << QStringLiteral("05/11/2026");
        QTest::newRow("Germany") << QStringLiteral("de_DE") << QStringLiteral("05.11.2026");
        QTest::newRow("America") << QStringLiteral("en_US") << QStringLiteral("11/5/2026");
        QTest::newRow("Persia") << QStringLiteral("fa_AF") << QString::fromUtf8("۲۰۲۶/۱۱/۵");
    }
    void datesAreNumbersInTheOrderOfThePlace()
    {
        QFETCH(QString, place);
        QTEST(LocalDate(QDate(2026, 11, 5), QLocale(place)), "date");
    }

    void noPlaceWritesTheNameOfAMonth()
    {
        for (const QLocale &place : QLocale::matchingLocales(
                 QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyCountry)) {
            const QString date = LocalDate(QDate(2026, 11, 21), place);
            const QByteArray written = ToCodePage(date);
            QVERIFY2(written.contains("2026") && written.contains("21") && written.contains("11"),
                     qPrintable(place.name() + QLatin1Char(' ') + date));
        }
    }

    void aPictureBecomesABitmapFineEnoughForPaper()
    {
        ScriptedHost host;
        Form form("Finestra", 6000, 3000);
        PictureBox box({form, "Picture1"}, {0, 0, 1500, 750});
        box.SetBackColor(Rgb(1, 2, 3));
        const QString file = host.Drive.filePath(QStringLiteral("figura.tmp"));
        box.SaveImage(file);
        box.LoadPicture({});
        QVERIFY(box.LoadedPicture().isNull());
        box.LoadPicture(file);
        QVERIFY(box.LoadedPicture().width() >= 1200);
        QCOMPARE(box.LoadedPicture().width(), 2 * box.LoadedPicture().height());
        QCOMPARE(box.Widget()->grab().toImage().pixelColor(50, 25), QColor(1, 2, 3));
        QCOMPARE(Skipping([&] { box.LoadPicture(file + QStringLiteral("x")); }), int{FileNotFound});
        QFile noise(file);
        QVERIFY(noise.open(QIODevice::WriteOnly));
        noise.write("noise");
        noise.close();
        QCOMPARE(Skipping([&] { box.LoadPicture(file); }), int{InvalidPicture});
        QCOMPARE(Skipping([&] { box.SaveImage(QStringLiteral("/nonexistent/x")); }),
                 int{PathFileAccess});
    }
};

MORLENE_TEST(TestGrid)
#include "test_grid.moc"
