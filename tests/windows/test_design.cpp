// Each window opens as designed: its controls in their order, places in twips, captions and states
// as text against a kept file.
#include "platform/controls/shape.h"
#include "support/exercise_fixture.h"
#include "support/expected_text.h"
#include "support/registered_tests.h"
#include "support/windows.h"

#include <QTest>

#include <memory>

using namespace platform;

namespace {

// " NAME VALUE", or nothing for a property that the control does not have.
template <typename Read> QString Property(const char *name, Read read)
{
    QString text;
    Skipping([&] { text = QStringLiteral(" %1 %2").arg(QLatin1String(name), read()); });
    return text;
}

QString Word(bool value)
{
    return value ? QStringLiteral("yes") : QStringLiteral("no");
}

QString Describe(const Control &control)
{
    QString line = control.Key();
    line += Property("place", [&] {
        return QStringLiteral("%1, %2, %3, %4")
            .arg(control.Left())
            .arg(control.Top())
            .arg(control.Width())
            .arg(control.Height());
    });
    line += Property("enabled", [&] { return Word(control.Enabled()); });
    line += Property("visible", [&] { return Word(control.Visible()); });
    line += Property("caption", [&] {
        return QLatin1Char('"') + control.Caption().replace(QLatin1Char('\n'), QLatin1Char('|')) +
               QLatin1Char('"');
    });
    if (const auto *visual = dynamic_cast<const VisualControl *>(&control))
        line += QStringLiteral(" back %1 pointer %2")
                    .arg(visual->BackColor(), 8, 16, QLatin1Char('0'))
                    .arg(static_cast<int>(visual->MousePointer()));
    if (const auto *timer = dynamic_cast<const Timer *>(&control))
        line += QStringLiteral(" interval %1").arg(timer->Interval());
    if (const auto *item = dynamic_cast<const MenuItem *>(&control))
        line += QStringLiteral(" ticked ") + Word(item->Checked());
    if (!control.Tag().isEmpty())
        line += QStringLiteral(" tag ") + control.Tag();
    return line;
}

QString DesignOf(const Form &form)
{
    QString text = QStringLiteral("%1 \"%2\" back %3\n")
                       .arg(form.Name(), form.Caption())
                       .arg(form.BackColor(), 8, 16, QLatin1Char('0'));
    for (const Control *control : form.Controls())
        text += Describe(*control) + QLatin1Char('\n');
    return text;
}

} // namespace

class TestDesign : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theWindowIsAsDesigned_data()
    {
        QTest::addColumn<QString>("name");
        for (const QString &name : WindowNames())
            QTest::newRow(qPrintable(name)) << name;
    }

    void theWindowIsAsDesigned()
    {
        QFETCH(QString, name);
        const Player player;
        for (const QString &known : WindowNames())
            RegistraFinestra(known, nullptr);
        const QString made = DesignOf(*MakeWindow(name));
        QStringList lines = made.split(QLatin1Char('\n'));
        lines.removeLast();
        CompareWithExpected(QStringLiteral("design_%1.txt").arg(name), lines);
    }
};

MORLENE_TEST(TestDesign)
#include "test_design.moc"
