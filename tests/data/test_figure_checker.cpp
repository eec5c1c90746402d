// The checker for artists lets the figures of the program pass and refuses a damaged one, each
// fault by its name.
#include "support/registered_tests.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

namespace {

const QStringList Parts = {QStringLiteral("comignolo"), QStringLiteral("tetto"),
                           QStringLiteral("pareti"),    QStringLiteral("finestre"),
                           QStringLiteral("porta"),     QStringLiteral("gradino"),
                           QStringLiteral("fumo"),      QStringLiteral("nuvole")};

struct Verdict {
    int Status;
    QStringList Faults;
};

Verdict Checked(const QStringList &paths)
{
    QProcess checker;
    checker.start(QStringLiteral("python3"),
                  QStringList(QStringLiteral(SOURCE_DIR "/tools/check_figure.py")) + paths);
    if (!checker.waitForFinished() || checker.exitStatus() != QProcess::NormalExit)
        return {-1, {checker.errorString()}};
    const QString errors = QString::fromUtf8(checker.readAllStandardError());
    if (!errors.isEmpty())
        return {-1, {errors}};
    return {checker.exitCode(),
            QString::fromUtf8(checker.readAllStandardOutput()).split(u'\n', Qt::SkipEmptyParts)};
}

QString Figure(const QString &name)
{
    return QStringLiteral(SOURCE_DIR "/data/swf/") + name;
}

// The program's figure with `from`, where it first stands, changed into `to`; empty when the
// figure holds no such thing.
QByteArray Damaged(const QString &from, const QString &to)
{
    QFile whole(Figure(QStringLiteral("morlene1.svg")));
    if (!whole.open(QIODevice::ReadOnly))
        return {};
    QString svg = QString::fromUtf8(whole.readAll());
    const qsizetype at = svg.indexOf(from);
    return at < 0 ? QByteArray() : svg.replace(at, from.size(), to).toUtf8();
}

} // namespace

class TestFigureChecker : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void bothFiguresPass();
    void aDamagedFigureIsRefused_data();
    void aDamagedFigureIsRefused();
    void everyPartAndEachOfItsObjectsIsNeeded();
    void everyFaultStandsOnALineOfItsOwn();
    void aFileThatIsNoDrawingIsRefused();
    void withoutADrawingItTellsHowItIsUsed();

private:
    // A new file in the test's folder; its path.
    QString Written(const QString &name, const QByteArray &content);

    QTemporaryDir m_folder;
};

QString TestFigureChecker::Written(const QString &name, const QByteArray &content)
{
    QFile file(m_folder.filePath(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qWarning("cannot write %s", qPrintable(file.fileName()));
    return file.fileName();
}

void TestFigureChecker::bothFiguresPass()
{
    const Verdict verdict =
        Checked({Figure(QStringLiteral("morlene1.svg")), Figure(QStringLiteral("morlena0.svg"))});
    QCOMPARE(verdict.Faults, QStringList());
    QCOMPARE(verdict.Status, 0);
}

void TestFigureChecker::aDamagedFigureIsRefused_data()
{
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("to");
    QTest::addColumn<QString>("fault");
    const auto row = [](const char *name, const char *from, const char *to, const char *fault) {
        QTest::newRow(name) << QString::fromLatin1(from) << QString::fromLatin1(to)
                            << QString::fromLatin1(fault);
    };
    row("no viewBox", " viewBox=\"0 0 700 900\"", "", "the drawing has no viewBox");
    row("flat viewBox", "0 0 700 900\"", "0 0 700 0\"", "the viewBox is not four numbers");
    row("unfilled", "id=\"tetto.interno\" style=\"fill:",
        "id=\"tetto.interno\" style=\"fill:none;x:", "tetto.interno has the fill \"none\"");
    row("filled by attribute", "id=\"porta.interno\" style=\"fill:", "id=\"porta.interno\" fill=\"",
        "porta.interno has no fill in its style");
    row("faint inside", "id=\"porta.interno\" style=\"", "id=\"porta.interno\" style=\"opacity:.5;",
        "porta.interno is half transparent");
    row("hidden smoke", "<g id=\"fumo\"", "<g id=\"fumo\" style=\"display:none\"",
        "fumo: the part is hidden");
    row("coloured outline", "porta.contorno\" style=\"fill:none;stroke:#000000",
        "porta.contorno\" style=\"fill:none;stroke:#3a2b28", "porta.contorno has no black stroke");
    row("filled outline", "porta.contorno\" style=\"fill:none",
        "porta.contorno\" style=\"fill:#ffffff", "porta.contorno is filled and hides the inside");
    row("moved part", "<g id=\"tetto\"", "<g id=\"tetto\" transform=\"translate(9,9)\"",
        "<g> \"tetto\" has a transform");
    row("moved layer", "<g id=\"nuvole\"", "<g transform=\"scale(2)\"/><g id=\"nuvole\"",
        "<g> has a transform");
    row("clip path", "<g id=\"nuvole\"", "<clipPath id=\"c\"/><g id=\"nuvole\"",
        "<clipPath> \"c\" is ignored");
    row("filter", "<g id=\"nuvole\"", "<filter id=\"f\"/><g id=\"nuvole\"",
        "<filter> \"f\" is ignored");
    row("style sheet", "<g id=\"nuvole\"", "<style>path{}</style><g id=\"nuvole\"",
        "<style> is a style sheet");
    row("picture", "<g id=\"nuvole\">", "<g id=\"nuvole\"><image href=\"sky.png\"/>",
        "<image> is a picture");
    row("clone", "<g id=\"nuvole\">", "<g id=\"nuvole\"><use href=\"#tetto\"/>",
        "<use> is a clone");
    row("foreign file", "<g id=\"nuvole\">", "<g id=\"nuvole\"><path fill=\"url(sky.svg#a)\"/>",
        "<path> needs another file");
    row("background", "<g id=\"nuvole\"", "<rect width=\"700\" height=\"900\"/><g id=\"nuvole\"",
        "<rect> belongs to no part");
    row("twice the same id", "<g id=\"nuvole\"", "<g id=\"tetto\"/><g id=\"nuvole\"",
        "the id \"tetto\" stands there twice");
}

void TestFigureChecker::aDamagedFigureIsRefused()
{
    QFETCH(QString, from);
    QFETCH(QString, to);
    QFETCH(QString, fault);
    const QByteArray damaged = Damaged(from, to);
    QVERIFY2(!damaged.isEmpty(), "the figure no longer holds what is to be damaged");
    const Verdict verdict = Checked({Written(QStringLiteral("damaged.svg"), damaged)});
    QCOMPARE(verdict.Status, 1);
    QVERIFY2(verdict.Faults.join(u'\n').contains(fault), qPrintable(verdict.Faults.join(u'\n')));
}

void TestFigureChecker::everyPartAndEachOfItsObjectsIsNeeded()
{
    QStringList paths;
    QStringList expected;
    const auto without = [&](const QString &id, const QString &fault) {
        const QByteArray damaged =
            Damaged(QStringLiteral("id=\"%1\"").arg(id), QStringLiteral("id=\"altro\""));
        QVERIFY2(!damaged.isEmpty(), qPrintable(id));
        paths << Written(id + QStringLiteral(".svg"), damaged);
        expected << paths.last() + QStringLiteral(": ") + fault;
    };
    for (const QString &part : Parts) {
        without(part, QStringLiteral("%1: the part is missing").arg(part));
        for (const auto *object : {".interno", ".contorno"}) {
            const QString name = part + QLatin1String(object);
            without(name, QStringLiteral("%1: %2 is missing from the group").arg(part, name));
        }
    }
    const Verdict verdict = Checked(paths);
    QCOMPARE(verdict.Status, 1);
    for (const QString &fault : expected)
        QVERIFY2(verdict.Faults.join(u'\n').contains(fault), qPrintable(fault));
}

void TestFigureChecker::everyFaultStandsOnALineOfItsOwn()
{
    const Verdict verdict = Checked(
        {Written(QStringLiteral("empty.svg"), "<svg xmlns=\"http://www.w3.org/2000/svg\"/>")});
    QCOMPARE(verdict.Status, 1);
    // The viewBox and the eight parts.
    QCOMPARE(verdict.Faults.size(), 9);
}

void TestFigureChecker::aFileThatIsNoDrawingIsRefused()
{
    QCOMPARE(Checked({Written(QStringLiteral("torn.svg"), "<svg viewBox=\"0 0 7")}).Status, 1);
    QCOMPARE(Checked({Written(QStringLiteral("page.svg"), "<html/>")}).Status, 1);
    QCOMPARE(Checked({m_folder.filePath(QStringLiteral("absent.svg"))}).Status, 1);
}

void TestFigureChecker::withoutADrawingItTellsHowItIsUsed()
{
    const Verdict verdict = Checked({});
    QCOMPARE(verdict.Status, 2);
    QVERIFY(verdict.Faults.join(u'\n').contains(QStringLiteral("Usage")));
}

MORLENE_TEST(TestFigureChecker)
#include "test_figure_checker.moc"
