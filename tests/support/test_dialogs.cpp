// The wrappers of the common dialogs: what they ask, and where the answer goes.
#include "support/dialogs.h"

#include "core/shared_state.h"
#include "platform/base/errors.h"
#include "platform/controls/label.h"
#include "support/registered_tests.h"
#include "support/scripted_host.h"

#include <QTest>

using namespace platform;

namespace {

class Sample : public Form {
public:
    Sample() : Form("Sample", 3000, 3000), Label1({*this, "Label1"}, {0, 0, 900, 300}) {}
    Label Label1;
};

QString Choose(ModoFile mode, const QString &name)
{
    return ScegliFile(mode, QStringLiteral("Salva"), name, QStringLiteral("*.rpt"),
                      QStringLiteral("C:\\dati\\"), QStringLiteral("rpt"));
}

} // namespace

class TestDialogs : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aColourBecomesTheTextsAndCancellingLeavesItAlone()
    {
        ScriptedHost host;
        Sample form;
        form.Label1.SetForeColor(7);
        host.ExpectColor(std::nullopt);
        QVERIFY(!ScegliColore(form.Label1));
        QCOMPARE(form.Label1.ForeColor(), Color{7});
        host.ExpectColor(Color{0x00ABCDEF});
        QVERIFY(ScegliColore(form.Label1));
        QCOMPARE(form.Label1.ForeColor(), Color{0x00ABCDEF});
    }

    void aFontBecomesTheControlsWithItsStyleAndAWholeSize()
    {
        ScriptedHost host;
        Sample form;
        host.ExpectFont(std::nullopt);
        QVERIFY(!ScegliFont(form.Label1));
        QCOMPARE(form.Label1.Font(), Font());
        host.ExpectFont(FontChoice{QStringLiteral("Verdana"), 17.6, true, true, true});
        QVERIFY(ScegliFont(form.Label1));
        QCOMPARE(form.Label1.Font(), (Font{QStringLiteral("Verdana"), 18, true, true, true}));
    }

    void aFileIsAskedForAndItsNameIsKept()
    {
        ScriptedHost host;
        host.ExpectFile(QStringLiteral("Salva"), QStringLiteral("/x/dati/marzo.rpt"));
        QCOMPARE(Choose(ModoFile::Salva, QStringLiteral("marzo")),
                 QStringLiteral("/x/dati/marzo.rpt"));
        QVERIFY(!host.LastFileQuestion.Open);
        QCOMPARE(host.LastFileQuestion.ProposedName, QStringLiteral("marzo"));
        QCOMPARE(host.LastFileQuestion.Pattern, QStringLiteral("*.rpt"));
        QCOMPARE(host.LastFileQuestion.StartFolder, host.DriveRoot() + QStringLiteral("dati"));
        QCOMPARE(host.LastFileQuestion.Extension, QStringLiteral("rpt"));
        QCOMPARE(UltimoFileScelto.size(), qsizetype(255));
        QCOMPARE(UltimoFileScelto.left(10), QStringLiteral("marzo.rpt") + QChar(u'\0'));
        host.ExpectFile(QStringLiteral("Salva"), QString());
        QCOMPARE(Choose(ModoFile::Apri, QString()), QString());
        QVERIFY(host.LastFileQuestion.Open);
        QCOMPARE(UltimoFileScelto, QString(255, QChar(u'\0')));
    }

    void aProposedNameThatIsTooLongIsAnOverflow()
    {
        ScriptedHost host;
        QCOMPARE(Skipping([] { Choose(ModoFile::Salva, QString(251, QLatin1Char('a'))); }), 6);
        host.ExpectFile(QStringLiteral("Salva"), QString());
        Choose(ModoFile::Salva, QString(250, QLatin1Char('a')));
    }
};

MORLENE_TEST(TestDialogs)
#include "test_dialogs.moc"
