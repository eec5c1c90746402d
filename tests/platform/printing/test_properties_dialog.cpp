// The printer's own dialog, worked as a person would: what it opens on, what it gives back, and
// that cancelling gives nothing.
#include "platform/printing/properties_dialog.h"

#include "platform/controls/form.h"
#include "support/registered_tests.h"
#include "support/scripted_host.h"

#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QPageSize>
#include <QPushButton>
#include <QSpinBox>
#include <QTest>
#include <QTimer>

#include <functional>

using namespace platform;

namespace {

const QList<QPageSize> Papers = {QPageSize(QPageSize::A4), QPageSize(QPageSize::A5)};

QString KeyOf(QPageSize::PageSizeId paper)
{
    return QPageSize(paper).key();
}

// The field of that description.
template <typename Field> Field &Of(QDialog &dialog, const char *what)
{
    for (Field *field : dialog.findChildren<Field *>())
        if (field->accessibleDescription() == QLatin1String(what))
            return *field;
    qFatal("no field %s", what);
}

void Press(QDialog &dialog, QDialogButtonBox::StandardButton button)
{
    QTest::mouseClick(dialog.findChild<QDialogButtonBox *>()->button(button), Qt::LeftButton);
}

// Opens the dialog on a record, in which `person` does something.
bool Ask(DeviceMode &mode, const std::function<void(QDialog &)> &person)
{
    Form owner("Owner", 3000, 3000);
    owner.Show();
    QTimer::singleShot(0, qApp, [&person] {
        auto *dialog = dynamic_cast<QDialog *>(QApplication::activeModalWidget());
        QVERIFY(dialog != nullptr);
        person(*dialog);
        if (dialog->isVisible())
            dialog->reject();
    });
    return AskPrinterProperties(owner, Papers, mode);
}

} // namespace

class TestPropertiesDialog : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void itOpensOnTheRecordAndGivesBackWhatWasChosen()
    {
        const ScriptedHost host;
        DeviceMode mode{.DeviceName = QStringLiteral("Prima"),
                        .Orientation = 2,
                        .Copies = 3,
                        .Paper = KeyOf(QPageSize::A5)};
        QVERIFY(Ask(mode, [](QDialog &dialog) {
            QVERIFY(dialog.windowTitle().endsWith(QStringLiteral("Prima")));
            auto &paper = Of<QComboBox>(dialog, "paper");
            auto &orientation = Of<QComboBox>(dialog, "orientation");
            auto &copies = Of<QSpinBox>(dialog, "copies");
            QCOMPARE(paper.currentIndex(), 1);
            QCOMPARE(orientation.currentIndex(), 1);
            QCOMPARE(copies.value(), 3);
            QTest::keyClick(&paper, Qt::Key_Up);
            QTest::keyClick(&orientation, Qt::Key_Up);
            QTest::keyClick(&copies, Qt::Key_Up);
            Press(dialog, QDialogButtonBox::Ok);
        }));
        QCOMPARE(mode.Paper, KeyOf(QPageSize::A4));
        QCOMPARE(mode.Orientation, int16_t{1});
        QCOMPARE(mode.Copies, int16_t{4});
        QCOMPARE(mode.DeviceName, QStringLiteral("Prima"));
    }

    void cancellingLeavesTheRecord()
    {
        const ScriptedHost host;
        const DeviceMode before{.DeviceName = QStringLiteral("Prima"),
                                .Orientation = 1,
                                .Copies = 2,
                                .Paper = KeyOf(QPageSize::A4)};
        DeviceMode mode = before;
        QVERIFY(!Ask(mode, [](QDialog &dialog) {
            QTest::keyClick(&Of<QComboBox>(dialog, "paper"), Qt::Key_Down);
            QTest::keyClick(&Of<QComboBox>(dialog, "orientation"), Qt::Key_Down);
            QTest::keyClick(&Of<QSpinBox>(dialog, "copies"), Qt::Key_Up);
            Press(dialog, QDialogButtonBox::Cancel);
        }));
        QCOMPARE(mode, before);
    }
};

MORLENE_TEST(TestPropertiesDialog)
#include "test_properties_dialog.moc"
