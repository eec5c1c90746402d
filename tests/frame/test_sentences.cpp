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
