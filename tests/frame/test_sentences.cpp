// Every sentence of "Vero o falso" stands in a text that was read line by line; the program must
// make those and no others.
#include "frame/sentences.h"

#include "exercises/form_es1.h"
#include "support/exercise_fixture.h"
#include "support/hands.h"
#include "support/registered_tests.h"
#include "support/speaking_player.h"

#include <QFile>
#include <QSet>
#include <QTest>

using namespace platform;

namespace {

QStringList ExpectedLines(const QString &language)
{
    QFile file(QStringLiteral(TESTS_DIR "/expected/sentences/") + language +
               QStringLiteral("/es1.txt"));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QStringList lines = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
    // The notes at the head.
    while (!lines.isEmpty() && lines.first() != QStringLiteral("# level 1"))
        lines.removeFirst();
    return lines;
}

QString Statement(int part, int colour, bool positive)
{
    return (positive ? AperturaPositiva(part) : AperturaNegativa(part)) + NomeColore(colour, part);
}

// With the number of a colour, whose odd ones mean "there" for smoke and clouds.
QString Statement(int part, int number, int, bool positive)
{
    return part > 6 ? FrasePresenza(part, number % 2 == 1) : Statement(part, number, positive);
}

QStringList SinglesOf(int level)
{
    QStringList lines;
    for (int part = 1; part <= 8; ++part)
        for (int colour = 1; colour <= (part > 6 ? 2 : 4); ++colour)
            for (const bool positive : {true, false})
                if (level == 3 || positive == (level == 1))
                    lines << Statement(part, colour, 0, positive);
    return lines;
}

QStringList PairsOf(int level)
{
    QStringList lines;
    for (int first = 1; first <= 8; ++first)
        for (int second = 1; second <= 8; ++second) {
            if (first == second)
                continue;
            const int colour1 = (first + second) % 4 + 1;
            const int colour2 = (first + 2 * second) % 4 + 1;
            for (const bool secondPositive : {true, false})
                if (level == 6 || secondPositive == (level == 4))
                    lines << InStile(Statement(first, colour1, 0, level == 4) + Congiunzione() +
                                     Statement(second, colour2, 0, secondPositive).toLower());
        }
    return lines;
}

QStringList AllLines()
{
    QStringList lines;
    for (int level = 1; level <= 6; ++level) {
        lines << QStringLiteral("# level %1").arg(level);
        for (const QString &sentence : level <= 3 ? SinglesOf(level) : PairsOf(level))
            lines << InStile(sentence) + QLatin1Char('.');
        lines << QString();
    }
    lines << QStringLiteral("# clauses");
    for (const QString &statement : SinglesOf(3))
        lines << InStile(statement + QStringLiteral(" |") + Congiunzione() + statement.toLower());
    return lines << QString();
}

} // namespace

class TestSentences : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theSentencesAreThoseThatWereRead_data() { RowsOfLanguages(); }
    void theSentencesAreThoseThatWereRead()
    {
        QFETCH(QString, name);
        const SpeakingPlayer player(LanguageOf(name));
        const QStringList made = AllLines();
        if (qEnvironmentVariableIsSet("SHOW_EXPECTED")) {
            std::fputs(made.join(QLatin1Char('\n')).toUtf8().constData(), stdout);
            return;
        }
        const QStringList expected = ExpectedLines(LanguageOf(name));
        for (qsizetype i = 0; i < std::min(expected.size(), made.size()); ++i)
            QCOMPARE(made.at(i), expected.at(i));
        QCOMPARE(made.size(), expected.size());
    }

    void theStatementsOfALevelAreAffirmedOrDenied_data()
    {
        QTest::addColumn<int>("level");
        QTest::addColumn<QList<ScriptedDraw>>("draws");
        QTest::addColumn<QString>("sentence");
        using Draws = QList<ScriptedDraw>;
        // False, the walls, blue; true, the chimney, not yellow; and the like.
        QTest::newRow("1") << 1 << Draws{{2, 1}, {8, 2}, {4, 2}} << "Le pareti sono blu.";
        QTest::newRow("2") << 2 << Draws{{2, 0}, {8, 0}, {4, 3}} << "Il comignolo non è giallo.";
        QTest::newRow("2, denies what is so")
            << 2 << Draws{{2, 1}, {8, 5}} << "Il gradino non è verde.";
        QTest::newRow("3, affirms")
            << 3 << Draws{{2, 1}, {8, 1}, {2, 0}, {4, 1}} << "Il tetto è rosso.";
        QTest::newRow("3, denies") << 3 << Draws{{2, 1}, {8, 1}, {2, 1}} << "Il tetto non è verde.";
        QTest::newRow("4") << 4 << Draws{{2, 0}, {8, 2}, {8, 3}}
                           << "Le pareti sono verdi e le finestre sono verdi.";
        QTest::newRow("5") << 5 << Draws{{2, 0}, {8, 0}, {8, 1}, {4, 1}, {4, 2}}
                           << "Il comignolo non è rosso e il tetto non è blu.";
        QTest::newRow("5, the first denies what is so")
            << 5 << Draws{{2, 1}, {8, 0}, {8, 1}, {2, 1}, {2, 0}, {4, 2}}
            << "Il comignolo non è verde e il tetto non è blu.";
        QTest::newRow("6, denies and affirms")
            << 6 << Draws{{2, 0}, {8, 0}, {8, 1}, {2, 0}, {4, 1}, {2, 0}}
            << "Il comignolo non è rosso e il tetto è verde.";
        QTest::newRow("6, denies twice")
            << 6 << Draws{{2, 0}, {8, 0}, {8, 1}, {2, 0}, {4, 1}, {2, 1}, {4, 3}}
            << "Il comignolo non è rosso e il tetto non è giallo.";
    }
    void theStatementsOfALevelAreAffirmedOrDenied()
    {
        QFETCH(int, level);
        QFETCH(QList<ScriptedDraw>, draws);
        QFETCH(QString, sentence);
        Player player;
        SuoniAttivi = false;
        player.Host.Expect(Colouring({1, 1, 1, 1, 1, 1}, 1, 0) +
                           QList<ScriptedDraw>{{2, 0}, {8, 1}});
        auto &form = player.Open<FormEs1>();
        player.Host.Expect(draws);
        ChooseLevel(form, level);
        QCOMPARE(form.Label1.Caption(), sentence);
        QCOMPARE(form.IndiceEsatto, static_cast<int16_t>(draws.first().Value));
        QVERIFY(!player.Host.DrawsLeft());
    }

    void smokeAndCloudsAreSaidToBeThereOrNot_data()
    {
        QTest::addColumn<int>("level");
        QTest::addColumn<bool>("there");
        QTest::addColumn<bool>("isTrue");
        for (const int level : {1, 2})
            for (const bool there : {false, true})
                for (const bool isTrue : {false, true})
                    QTest::addRow("level %d, %s, %s", level, there ? "there" : "not there",
                                  isTrue ? "true" : "false")
                        << level << there << isTrue;
    }
    void smokeAndCloudsAreSaidToBeThereOrNot()
    {
        QFETCH(int, level);
        QFETCH(bool, there);
        QFETCH(bool, isTrue);
        Player player;
        SuoniAttivi = false;
        player.Host.Expect(Colouring({1, 1, 1, 1, 1, 1}, there ? 1 : 0, there ? 1 : 0) +
                           QList<ScriptedDraw>{{2, 0}, {8, 1}});
        auto &form = player.Open<FormEs1>();
        const bool saysThere = there == isTrue;
        // The denying composer says the same of them as the affirming one.
        player.Host.Expect({{2, isTrue ? 0 : 1}, {8, 6}});
        ChooseLevel(form, level);
        QCOMPARE(form.Label1.Caption(),
                 saysThere ? QStringLiteral("C'è il fumo.") : QStringLiteral("Non c'è il fumo."));
        player.Host.Expect({{2, isTrue ? 0 : 1}, {8, 7}});
        ChooseLevel(form, level);
        QCOMPARE(form.Label1.Caption(), saysThere ? QStringLiteral("Ci sono le nuvole.")
                                                  : QStringLiteral("Non ci sono le nuvole."));
    }

    void theWindowMakesNoOtherSentence()
    {
        Player player;
        SuoniAttivi = false;
        player.Host.Seed(11);
        QSet<QString> read;
        for (const QString &statement : SinglesOf(3))
            read << statement.toLower();
        auto &form = player.Open<FormEs1>();
        form.LockDrawing(true);
        QSet<QString> seen;
        for (int level = 1; level <= 6; ++level)
            for (int task = 0; task < 2000; ++task) {
                ChooseLevel(form, level);
                NumeroEserciziEseguiti = 1;
                player.Host.TakeEvents();
                const QString sentence = form.Label1.Caption();
                QVERIFY(sentence.at(0).isUpper());
                QVERIFY(sentence.endsWith(QLatin1Char('.')));
                const QStringList statements =
                    sentence.toLower().chopped(1).split(QStringLiteral(" e "));
                QCOMPARE(statements.size(), level <= 3 ? 1 : 2);
                for (const QString &statement : statements) {
                    QVERIFY2(read.contains(statement), qPrintable(statement));
                    seen << statement;
                }
            }
        // And it makes each of them.
        QCOMPARE(seen.size(), read.size());
    }
};

MORLENE_TEST(TestSentences)
#include "test_sentences.moc"
