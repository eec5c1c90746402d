// Each window opens as designed: its controls in their order, places in twips, captions and states
// as text against a kept file.
#include "exercises/form_es1.h"
#include "menu/form_menu.h"
#include "platform/shape.h"
#include "printing/frm_stampa.h"
#include "results/form_esercizi_eseguiti.h"
#include "support/exercise_fixture.h"
#include "support/windows/form_avvio.h"

#include <QFile>
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

std::unique_ptr<Form> Make(const QString &name)
{
    if (name == QStringLiteral("FormAvvio"))
        return std::make_unique<FormAvvio>();
    if (name == QStringLiteral("FormMenu"))
        return std::make_unique<FormMenu>();
    if (name == QStringLiteral("FormEserciziEseguiti"))
        return std::make_unique<FormEserciziEseguiti>();
    if (name == QStringLiteral("frmStampa"))
        return std::make_unique<FrmStampa>();
    return std::make_unique<FormEs1>();
}

} // namespace

class TestDesign : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theWindowIsAsDesigned_data()
    {
        QTest::addColumn<QString>("name");
        for (const char *name : {"FormAvvio", "FormMenu", "FormEs1", "FormEserciziEseguiti",
                                  "frmStampa"})
            QTest::newRow(name) << QString::fromLatin1(name);
    }

    void theWindowIsAsDesigned()
    {
        QFETCH(QString, name);
        const Player player;
        RegistraFinestra(QStringLiteral("FormEs1"), []() -> Form * { return new FormEs1; });
        const QString made = DesignOf(*Make(name));
        QFile file(QStringLiteral(TESTS_DIR "/expected/design_%1.txt").arg(name));
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QStringList expected = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
        const QStringList lines = made.split(QLatin1Char('\n'));
        if (qEnvironmentVariableIsSet("SHOW_DESIGN"))
            qInfo("%s", qPrintable(made));
        for (qsizetype i = 0; i < std::min(lines.size(), expected.size()); ++i)
            QCOMPARE(lines.at(i), expected.at(i));
        QCOMPARE(lines.size(), expected.size());
    }
};

MORLENE_TEST_MAIN(TestDesign)
#include "test_design.moc"
