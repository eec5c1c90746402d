// The page set-up dialog's fields: which keys they take, and where they and their arrows end.
#include "printing/stampa_desk.h"
#include "support/registered_tests.h"

#include <QAccessible>
#include <QClipboard>
#include <QGuiApplication>
#include <QLineEdit>
#include <QTest>
#include <QToolButton>

using namespace platform;

class TestStampaFields : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void onlyDigitsAreTaken()
    {
        Desk desk;
        desk.Open([&](FrmStampa &dialog) {
            for (TextBox *field : {&dialog.txtPrX, &dialog.txtPrY, &dialog.txtPrW, &dialog.txtPrH,
                                   &dialog.txtNCopies}) {
                Type(*field, QStringLiteral("5-.a7 "));
                QCOMPARE(field->Text(), QStringLiteral("57"));
            }
            Type(dialog.txtPrX, QStringLiteral("-8"));
            QCOMPARE(Stampa.MargineX, 8);
            QCOMPARE(Stampa.NumeroCopie, 57);
        });
    }

    void aRefusedKeyLeavesTheNumberAndItsSelection()
    {
        Desk desk;
        desk.Open([&](FrmStampa &dialog) {
            for (TextBox *field : {&dialog.txtPrX, &dialog.txtPrY, &dialog.txtPrW, &dialog.txtPrH,
                                   &dialog.txtNCopies}) {
                field->SetText(QStringLiteral("100"));
                auto *line = static_cast<QLineEdit *>(field->Widget());
                int changes = 0;
                const auto change = field->OnChange;
                field->OnChange = [&] { ++changes; };
                line->setFocus();
                DoEvents();
                line->selectAll();
                for (const Qt::Key key : {Qt::Key_X, Qt::Key_Minus, Qt::Key_Space}) {
                    QTest::keyClick(line, key);
                    QCOMPARE(field->Text(), QStringLiteral("100"));
                    QCOMPARE(line->selectedText(), QStringLiteral("100"));
                    QCOMPARE(changes, 0);
                }
                // Part of it, selected from its end to its start.
                line->setSelection(3, -2);
                QTest::keyClick(line, Qt::Key_X);
                QCOMPARE(field->Text(), QStringLiteral("100"));
                QCOMPARE(line->selectedText(), QStringLiteral("00"));
                QCOMPARE(line->cursorPosition(), 1);
                field->OnChange = change;
                QTest::keyClick(line, Qt::Key_2);
                QCOMPARE(field->Text(), QStringLiteral("12"));
                // Within the number, with nothing selected.
                line->setCursorPosition(1);
                QTest::keyClick(line, Qt::Key_X);
                QCOMPARE(line->cursorPosition(), 1);
                QTest::keyClick(line, Qt::Key_5);
                QCOMPARE(field->Text(), QStringLiteral("152"));
                QTest::keyClick(line, Qt::Key_Backspace);
                QCOMPARE(field->Text(), QStringLiteral("12"));
            }
            QCOMPARE(Stampa.NumeroCopie, 12);
        });
    }

    void whatAnAidWritesIsSiftedLikeKeys()
    {
        Desk desk;
        desk.Open([&](FrmStampa &dialog) {
            dialog.chkProporzioni.SetValue(false);
            for (TextBox *field : {&dialog.txtPrX, &dialog.txtPrY, &dialog.txtPrW, &dialog.txtPrH,
                                   &dialog.txtNCopies}) {
                field->SetText(QStringLiteral("100"));
                QAccessibleInterface *aid = QAccessible::queryAccessibleInterface(field->Widget());
                QVERIFY(aid->editableTextInterface() != nullptr);
                aid->editableTextInterface()->replaceText(0, 3, QStringLiteral("-4a2"));
                QCOMPARE(field->Text(), QStringLiteral("42"));
                aid->setText(QAccessible::Value, QStringLiteral("quaranta"));
                QCOMPARE(field->Text(), QStringLiteral("42"));
                aid->editableTextInterface()->insertText(1, QStringLiteral("x3"));
                QCOMPARE(field->Text(), QStringLiteral("432"));
                aid->editableTextInterface()->deleteText(0, 1);
                QCOMPARE(field->Text(), QStringLiteral("32"));
                aid->setText(QAccessible::Value, {});
                QVERIFY(field->Text().size() <= 1); // a size takes its nearest end
                aid->setText(QAccessible::Value, QStringLiteral("17"));
                QCOMPARE(field->Text(), QStringLiteral("17"));
            }
            QCOMPARE(Stampa.MargineX, 17);
            QCOMPARE(Stampa.StampaH, 17);
            QCOMPARE(Stampa.NumeroCopie, 17);
            // What keys cannot reach an aid cannot reach either.
            dialog.chkCentro.SetValue(true);
            const QString centred = dialog.txtPrX.Text();
            QAccessible::queryAccessibleInterface(dialog.txtPrX.Widget())
                ->setText(QAccessible::Value, QStringLiteral("5"));
            QCOMPARE(dialog.txtPrX.Text(), centred);
            // The minus that only the arrows write stays when an aid writes behind it.
            dialog.chkCentro.SetValue(false);
            dialog.txtPrX.SetText(QStringLiteral("-1"));
            QAccessible::queryAccessibleInterface(dialog.txtPrX.Widget())
                ->editableTextInterface()
                ->insertText(2, QStringLiteral("2-"));
            QCOMPARE(dialog.txtPrX.Text(), QStringLiteral("-12"));
        });
    }

    void pastedNumbersReplaceWhatIsSelectedWithTheirDigits()
    {
        Desk desk;
        desk.Open([&](FrmStampa &dialog) {
            auto *line = static_cast<QLineEdit *>(dialog.txtPrX.Widget());
            const auto paste = [&](const char *text) {
                QGuiApplication::clipboard()->setText(QString::fromLatin1(text));
                line->selectAll();
                QTest::keyClick(line, Qt::Key_V, Qt::ControlModifier);
                return dialog.txtPrX.Text();
            };
            QCOMPARE(paste("1x2"), QStringLiteral("12"));
            QCOMPARE(paste("1x"), QStringLiteral("1"));
            QCOMPARE(paste("abc"), QStringLiteral("1"));
            QCOMPARE(line->selectedText(), QStringLiteral("1"));
            QCOMPARE(paste("-30 mm"), QStringLiteral("30"));
        });
    }

    void fieldsTakeTheNearestEnd()
    {
        Desk desk;
        desk.Open([&](FrmStampa &dialog) {
            dialog.chkProporzioni.SetValue(false);
            Type(dialog.txtPrW, QStringLiteral("2001"));
            QCOMPARE(dialog.txtPrW.Text(), QStringLiteral("2000"));
            QCOMPARE(Stampa.StampaW, 2000);
            Type(dialog.txtPrH, QStringLiteral("0"));
            QCOMPARE(dialog.txtPrH.Text(), QStringLiteral("1"));
            QCOMPARE(Stampa.StampaH, 1);
            dialog.txtPrW.SetText({});
            QCOMPARE(dialog.txtPrW.Text(), QStringLiteral("1"));
            dialog.txtPrX.SetText(QStringLiteral("-2001"));
            QCOMPARE(dialog.txtPrX.Text(), QStringLiteral("-2000"));
            QCOMPARE(Stampa.MargineX, -2000);
            dialog.txtPrY.SetText(QStringLiteral("99999999999"));
            QCOMPARE(dialog.txtPrY.Text(), QStringLiteral("2000"));
            dialog.txtPrX.SetText(QStringLiteral("12xyz"));
            QCOMPARE(Stampa.MargineX, 12);
            dialog.txtNCopies.SetText(QStringLiteral("99999999999"));
            QCOMPARE(desk.Host.FatalNumber, 0);
        });
    }

    void arrowsStopAtTheirEnds()
    {
        Desk desk;
        desk.Open([&](FrmStampa &dialog) {
            dialog.updNCopies.Down();
            QCOMPARE(dialog.txtNCopies.Text(), QStringLiteral("1"));
            dialog.updNCopies.Up();
            QCOMPARE(Stampa.NumeroCopie, 2);
            dialog.txtNCopies.SetText(QStringLiteral("100"));
            dialog.updNCopies.Up();
            QCOMPARE(dialog.txtNCopies.Text(), QStringLiteral("100"));
            dialog.txtPrW.SetText(QStringLiteral("2"));
            dialog.updPrW.Down();
            QCOMPARE(Stampa.StampaW, 2);
        });
    }

    void everyArrowStopsAtTheEndsOfItsField()
    {
        Desk desk;
        desk.Open([&](FrmStampa &dialog) {
            dialog.chkProporzioni.SetValue(false);
            struct Row {
                TextBox &Field;
                UpDown &Arrows;
                int Min;
                int Max;
            };
            for (const Row &row :
                 std::initializer_list<Row>{{dialog.txtPrX, dialog.updPrX, -2000, 2000},
                                            {dialog.txtPrY, dialog.updPrY, -2000, 2000},
                                            {dialog.txtPrW, dialog.updPrW, 2, 2000},
                                            {dialog.txtPrH, dialog.updPrH, 2, 2000},
                                            {dialog.txtNCopies, dialog.updNCopies, 1, 100}}) {
                const QList<QToolButton *> buttons =
                    row.Arrows.Widget()->findChildren<QToolButton *>();
                QCOMPARE(buttons.size(), qsizetype{2});
                for (QToolButton *button : buttons) {
                    const bool up = button->arrowType() == Qt::UpArrow;
                    const int end = up ? row.Max : row.Min;
                    const int step = up ? 1 : -1;
                    row.Field.SetText(QString::number(end - 2 * step));
                    QStringList seen;
                    for (int press = 0; press < 3; ++press) {
                        QTest::mouseClick(button, Qt::LeftButton);
                        seen << row.Field.Text();
                    }
                    QCOMPARE(seen, QStringList({QString::number(end - step), QString::number(end),
                                                QString::number(end)}));
                }
            }
            // A field that stands outside of them comes in at the nearest end.
            dialog.txtNCopies.SetText(QStringLiteral("500"));
            dialog.updNCopies.Down();
            QCOMPARE(Stampa.NumeroCopie, 100);
            dialog.txtNCopies.SetText({});
            dialog.updNCopies.Down();
            QCOMPARE(Stampa.NumeroCopie, 1);
        });
    }
};

MORLENE_TEST(TestStampaFields)
#include "test_stampa_fields.moc"
