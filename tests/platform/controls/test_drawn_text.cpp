// Texts in places that may be too narrow for them.
#include "platform/controls/sample.h"

#include "platform/controls/frame.h"
#include "platform/controls/text_box.h"
#include "support/registered_tests.h"
#include "support/scripted_host.h"

#include <QAbstractScrollArea>
#include <QAccessible>
#include <QScrollBar>
#include <QTest>
#include <QWheelEvent>
#include <QWidget>

#include <algorithm>
#include <utility>

using namespace platform;

namespace {

// A form of texts in narrow places.
class Texts : public Form {
public:
    Texts()
        : Form("Texts", 6000, 3000),
          Shorter({*this, "Shorter"}, {0, 0, 1500, 600}, QStringLiteral("esci")),
          Longer({*this, "Longer"}, {0, 600, 1500, 600}, QStringLiteral("Colora la morlena")),
          Answer({*this, "Answer"}, {1500, 0, 1605, 1200}),
          Page({*this, "Page"}, {0, 1200, 4500, 1200}, TextBox::Kind::ReadOnlyPage)
    {
    }
    Label Shorter;
    Label Longer;
    Button Answer;
    TextBox Page;
};

constexpr Color Red = 0x000000FF;

// The first and the last column that red letters stand in.
std::pair<int, int> RedColumns(const VisualControl &control)
{
    const QImage seen = control.Widget()->grab().toImage();
    int left = seen.width();
    int right = 0;
    for (int x = 0; x < seen.width(); ++x)
        for (int y = 0; y < seen.height(); ++y) {
            const QColor color = seen.pixelColor(x, y);
            if (color.red() > color.green() + 100) {
                left = std::min(left, x);
                right = std::max(right, x);
            }
        }
    return {left, right};
}

} // namespace

class TestDrawnText : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void labelsThatShareASizeAreDrawnInTheSmallestThatOneNeeds()
    {
        ScriptedHost host;
        auto &form = *new Texts;
        Label &shorter = form.Shorter;
        Label &longer = form.Longer;
        form.Show();
        for (Label *label : {&shorter, &longer})
            label->SetFontSize(20);
        QCOMPARE(shorter.Drawn().Points, 20.0);
        const double needed = longer.Drawn().Points;
        QVERIFY(needed < 20);
        longer.ShareSize(shorter);
        QCOMPARE(shorter.Drawn().Points, needed);
        QCOMPARE(longer.Drawn().Points, needed);
        QCOMPARE(shorter.Font().Size, 20.0);
        longer.SetWidth(750);
        QVERIFY(longer.Drawn().Points < needed);
        QCOMPARE(shorter.Drawn().Points, longer.Drawn().Points);
        longer.SetCaption(QStringLiteral("ora"));
        QCOMPARE(shorter.Drawn().Points, 20.0);
        QCOMPARE(longer.Drawn().Points, 20.0);
    }

    void buttonsThatShareASizeAreDrawnInTheSmallestThatOneNeeds()
    {
        ScriptedHost host;
        auto &form = *new Texts;
        Button longer({form, "Longer2"}, {0, 0, 1200, 600}, QStringLiteral("diversissima"));
        Button &shorter = form.Answer;
        form.Show();
        for (Button *button : {&shorter, &longer})
            button->SetFontSize(20);
        shorter.SetWidth(3000);
        shorter.SetHeight(1200);
        shorter.SetCaption(QStringLiteral("ora"));
        QCOMPARE(shorter.Drawn().Points, 20.0);
        const double needed = longer.Drawn().Points;
        QVERIFY(needed < 20);
        longer.ShareSize(shorter);
        QCOMPARE(shorter.Drawn().Points, needed);
        QCOMPARE(longer.Drawn().Points, needed);
        QCOMPARE(shorter.Font().Size, 20.0);
        longer.SetWidth(900);
        QVERIFY(longer.Drawn().Points < needed);
        QCOMPARE(shorter.Drawn().Points, longer.Drawn().Points);
        longer.SetWidth(3000);
        longer.SetHeight(1200);
        QCOMPARE(shorter.Drawn().Points, 20.0);
        longer.SetFontSize(16);
        QCOMPARE(shorter.Drawn().Points, 16.0);
        longer.SetCaption(QStringLiteral("diversissima e diversissima e diversissima"));
        QVERIFY(shorter.Drawn().Points < 16);
    }

    void aPageShowsAllOfItsTextAndStaysWhereItIs()
    {
        ScriptedHost host;
        auto &form = *new Texts;
        TextBox &page = form.Page;
        page.SetFontSize(36);
        const QString text = QStringLiteral("Le finestre non sono gialle.\r\n").repeated(6);
        page.SetText(text);
        form.Show();
        QVERIFY(page.Drawn().Whole);
        QVERIFY(page.Drawn().Points < 36);
        auto *view = static_cast<QAbstractScrollArea *>(page.Widget());
        const QImage before = view->grab().toImage();
        const QPointF middle = view->rect().center();
        QWheelEvent turn(middle, view->mapToGlobal(middle), {}, {0, -240}, Qt::NoButton,
                         Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(view->viewport(), &turn);
        QVERIFY(view->grab().toImage() == before);
        QVERIFY(!view->verticalScrollBar()->isVisible());
        QVERIFY(!view->horizontalScrollBar()->isVisible());
        // A wider page is laid anew.
        const double narrow = page.Drawn().Points;
        page.SetWidth(6000);
        QVERIFY(page.Drawn().Points > narrow);
        // What a screen reader reads.
        QAccessibleInterface *spoken = QAccessible::queryAccessibleInterface(view);
        QCOMPARE(spoken->role(), QAccessible::EditableText);
        QAccessibleTextInterface *words = spoken->textInterface();
        QCOMPARE(words->text(0, words->characterCount()),
                 QStringLiteral("Le finestre non sono gialle.\n").repeated(6).chopped(1));
    }

    void aCaptionKeepsClearOfTheEdgesOfItsButton()
    {
        ScriptedHost host;
        auto &form = *new Texts;
        Button &button = form.Answer;
        button.SetBackColor(0x00FFFFFF);
        button.SetForeColor(Red);
        form.Show();
        for (const char *const caption : {"uguale", "diversa", "DIVERSA", "UGUALE"})
            for (const bool bold : {false, true})
                for (const double size : {14.0, 40.0}) {
                    button.SetFontBold(bold);
                    button.SetFontSize(size);
                    button.SetCaption(QString::fromLatin1(caption));
                    const auto [left, right] = RedColumns(button);
                    const int width = button.Widget()->width();
                    QVERIFY2(left >= width / 10, caption);
                    QVERIFY2(width - 1 - right >= width / 10, caption);
                }
    }

    void aTitleStandsWholeInTheBorderOfItsGroup()
    {
        ScriptedHost host;
        auto &form = *new Texts;
        Frame group({form, "Group"}, {0, 0, 3000, 1200}, QStringLiteral("Sfondo delle finestre"));
        group.SetForeColor(Red);
        group.SetFontSize(14);
        form.Show();
        const auto [left, right] = RedColumns(group);
        QVERIFY(right > left);
        for (const double narrow : {2400.0, 1800.0, 1200.0}) {
            group.SetWidth(narrow);
            const auto [first, last] = RedColumns(group);
            QVERIFY(last - first < right - left);
            QVERIFY(first >= 14); // the round corner
            QVERIFY2(last < group.Widget()->width() - 14, qPrintable(QString::number(narrow)));
        }
    }

    void anAutomaticWidthFollowsTheText()
    {
        ScriptedHost host;
        Sample &form = Shown();
        form.Label1.SetAutoSize(true);
        form.Label1.SetCaption(QStringLiteral("a"));
        const double narrow = form.Label1.Width();
        form.Label1.SetFontSize(20);
        QVERIFY(form.Label1.Width() > narrow);
        form.Label1.SetCaption(QStringLiteral("a DIFFERENZE  "));
        QVERIFY(form.Label1.Width() > 5 * narrow);
        QCOMPARE(form.Label1.Font().Size, 20.0);
    }
};

MORLENE_TEST(TestDrawnText)
#include "test_drawn_text.moc"
