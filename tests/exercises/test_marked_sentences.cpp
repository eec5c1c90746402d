// Sentences in a language in which every text reads differently: each piece is its own key,
// "k0026", and each form of a colour's name its place in the table, "c13". In a real language many
// pieces read alike, and one taken for another would not be seen.
#include "exercises/form_es1.h"
#include "exercises/form_es2.h"
#include "exercises/form_es3.h"
#include "exercises/form_es4.h"
#include "exercises/form_es5.h"
#include "exercises/form_es6.h"
#include "exercises/form_es7.h"
#include "exercises/form_es8.h"
#include "language/language.h"
#include "support/application_folder.h"
#include "support/exercise_fixture.h"
#include "support/registered_tests.h"

#include <QSet>
#include <QTest>

#include <array>

using namespace platform;

namespace {

constexpr int Tasks = 600; // on each level: every piece comes

QString K(int key)
{
    return QStringLiteral("k%1").arg(key, 4, 10, QLatin1Char('0'));
}

QString Colour(int number, int column)
{
    return QStringLiteral("c%1%2").arg(number).arg(column);
}

// A player who speaks it.
class MarkedPlayer : public Player {
public:
    MarkedPlayer() : m_folder(Host)
    {
        QByteArray content = "[Strings]\r\n";
        for (int key = 1; key <= 105; ++key)
            content += K(key).mid(1).toLatin1() + "=\"" + K(key).toLatin1() + "\"\r\n";
        m_folder.WriteLanguage(content);
        for (const char *data : {"swf", "suoni/si", "suoni/no"})
            m_folder.Copy(QString::fromLatin1(data));
        LinguaCorrente.clear();
        CaricaMessaggi();
        for (int number = 1; number <= 4; ++number)
            for (int column = 1; column <= 4; ++column)
                Colori(number, column) = Colour(number, column);
    }

    // Asks for a task of a level anew.
    template <typename Window> static void NextTask(Window &form, int level)
    {
        form.mnuLiv.OnClick(level);
        NumeroEserciziEseguiti = 1;
    }

private:
    ApplicationFolder m_folder;
};

// How a sentence on a part opens, by part 1 to 6, and the column of its colour.
constexpr std::array<int, 7> Positive = {0, 26, 7, 8, 9, 10, 11};
constexpr std::array<int, 7> Negative = {0, 27, 28, 29, 31, 30, 32};
constexpr std::array<int, 7> Column = {0, 1, 1, 4, 4, 3, 1};

template <size_t N> int At(const std::array<int, N> &row, int part)
{
    return row.at(static_cast<size_t>(part));
}

QString Statement(int part, bool denied, int colour)
{
    return K(At(denied ? Negative : Positive, part)) + QLatin1Char(' ') +
           Colour(colour, At(Column, part));
}

// One clause of "Vero o falso": what it says and whether that is so.
struct Clause {
    int Part = 0;
    bool Denied = false;
    bool True = false;
};

// As `form` shows the figure; part 0 for a clause of no known form.
Clause ReadClause(const QString &text, const FormEs1 &form)
{
    for (int part = 1; part <= 6; ++part)
        for (const bool denied : {false, true})
            for (int colour = 1; colour <= 4; ++colour)
                if (text == Statement(part, denied, colour))
                    return {part, denied, (form.ColoreParte(part) == colour) != denied};
    const auto says = [&](int key, int part, bool there) {
        return text == K(key) ? Clause{part, !there, (form.ColoreParte(part) != 0) == there}
                              : Clause();
    };
    for (const Clause &clause :
         {says(16, 7, true), says(17, 7, false), says(22, 8, true), says(21, 8, false)})
        if (clause.Part != 0)
            return clause;
    return {};
}

// Of clause 0 or 1 of a level: whether it may deny what it says of a painted part, or has to.
enum class Way { Says, Denies, Either };
Way WayOf(int level, int clause)
{
    switch (level) {
    case 1:
    case 4:
        return Way::Says;
    case 2:
    case 5:
        return Way::Denies;
    case 6:
        return clause == 0 ? Way::Denies : Way::Either;
    default:
        return Way::Either;
    }
}

// "Insiemi": the first clause of every level.
QString FirstClause(int part, int value)
{
    if (part == 7)
        return K(value == 1 ? 16 : 17);
    if (part == 8)
        return K(value == 1 ? 18 : 19);
    return Statement(part, false, value);
}

// The second clause with what joins it. 9 is the part that only a redraw on level 2 can name.
QString SecondClause(int level, int part, int value)
{
    const auto colour = [&](int column) { return Colour(value, column); };
    const auto there = [&](int yes, int no) { return K(value == 1 ? yes : no); };
    if (level == 2) {
        const QString e = QLatin1Char(' ') + K(20) + QLatin1Char(' ');
        constexpr std::array<int, 7> Columns = {0, 1, 1, 4, 4, 3, 2};
        if (part <= 6)
            return e + K(83 + part) + colour(At(Columns, part));
        return part == 7 ? e + there(16, 17) : part == 8 ? e + there(18, 19) : QString();
    }
    const QString o = QLatin1Char(' ') + K(38) + QLatin1Char(' ');
    if (level == 3) {
        const QString che = o + K(39) + QLatin1Char(' ');
        if (part == 1)
            return che + K(90) + colour(1);
        if (part <= 6)
            return che + Statement(part, false, value);
        return che + (part == 7 ? there(12, 13) : there(18, 91));
    }
    if (part == 1)
        return o + K(92) + colour(1) + QStringLiteral(",  ") + K(37);
    if (part <= 6)
        return o + K(At(Positive, part)) + QLatin1Char(' ') +
               colour(part == 6 ? 3 : At(Column, part)) + QStringLiteral(",  ") + K(37);
    return part == 7 ? o + there(12, 13) + QStringLiteral(", ") + there(37, 40) : QString();
}

} // namespace

class TestMarkedSentences : public QObject {
    Q_OBJECT

private:
    // Each line of the description of a grid against the figure that it describes.
    template <typename Window> void DescribesTheFigure(int noClouds)
    {
        MarkedPlayer player;
        auto &form = player.OpenForManyTasks<Window>(1, 5);
        QSet<QString> seen;
        for (int task = 0; task < Tasks / 4; ++task) {
            player.NextTask(form, 1);
            QStringList expected;
            for (int part = 1; part <= 6; ++part)
                expected << Statement(part, false, form.ColoriCercata(part));
            expected << K(form.ColoriCercata(7) == 1 ? 12 : 13)
                     << K(form.ColoriCercata(8) == 1 ? 18 : noClouds);
            QStringList lines =
                form.Text1.Text().toLower().split(QStringLiteral(".\r\n"), Qt::SkipEmptyParts);
            lines.sort();
            expected.sort();
            QCOMPARE(lines, expected);
            for (const QString &line : lines)
                seen << line;
        }
        QCOMPARE(seen.size(), 6 * 4 + 2 + 2);
    }

private Q_SLOTS:
    void aSentenceOnOneFigureIsMadeOfItsOwnPieces_data() { RowsOfLevels(6); }
    void aSentenceOnOneFigureIsMadeOfItsOwnPieces()
    {
        QFETCH(int, level);
        MarkedPlayer player;
        auto &form = player.OpenForManyTasks<FormEs1>(level, 3);
        QSet<QString> seen;
        for (int task = 0; task < Tasks; ++task) {
            player.NextTask(form, level);
            const QString sentence = form.Label1.Caption().toLower();
            QVERIFY(sentence.endsWith(QLatin1Char('.')));
            const QStringList clauses =
                sentence.chopped(1).split(QLatin1Char(' ') + K(20) + QLatin1Char(' '));
            QCOMPARE(clauses.size(), level <= 3 ? 1 : 2);
            bool holds = true;
            for (int i = 0; i < clauses.size(); ++i) {
                const Clause clause = ReadClause(clauses.at(i), form);
                QVERIFY2(clause.Part != 0, qPrintable(sentence));
                const Way way = WayOf(level, i);
                if (clause.Part <= 6 && way != Way::Either)
                    QCOMPARE(clause.Denied, way == Way::Denies);
                holds = holds && clause.True;
                seen << QStringLiteral("%1 %2 %3").arg(i).arg(clause.Part).arg(clause.Denied);
            }
            QCOMPARE(form.IndiceEsatto, int16_t(holds ? 0 : 1));
        }
        int forms = 0;
        for (int i = 0; i < (level <= 3 ? 1 : 2); ++i)
            forms += WayOf(level, i) == Way::Either ? 8 * 2 : 6 + 2 * 2;
        QCOMPARE(seen.size(), forms);
    }

    void aSentenceOnTwoFiguresIsMadeOfItsOwnPieces_data() { RowsOfLevels(3); }
    void aSentenceOnTwoFiguresIsMadeOfItsOwnPieces()
    {
        QFETCH(int, level);
        constexpr std::array<int, 9> Says = {0, 26, 7, 8, 9, 10, 11, 34, 36};
        constexpr std::array<int, 9> Denies = {0, 27, 28, 29, 31, 30, 32, 33, 35};
        constexpr std::array<int, 9> Equal = {0, 14, 14, 23, 23, 14, 14, 14, 14};
        constexpr std::array<int, 9> Different = {0, 15, 15, 24, 24, 25, 15, 15, 15};
        MarkedPlayer player;
        auto &form = player.OpenForManyTasks<FormEs2>(level, 3);
        QSet<QString> seen;
        for (int task = 0; task < Tasks; ++task) {
            player.NextTask(form, level);
            const int part = form.QualeParte;
            const QString sentence = form.Label1.Caption().toLower();
            const bool denied = sentence == K(At(Denies, part)) + QLatin1Char(' ');
            QVERIFY2(denied || sentence == K(At(Says, part)) + QLatin1Char(' '),
                     qPrintable(sentence));
            if (level != 3)
                QCOMPARE(denied, level == 2);
            QCOMPARE(form.Command1(0).Caption(), K(At(Equal, part)));
            QCOMPARE(form.Command1(1).Caption(), K(At(Different, part)));
            const bool differ = form.Colore1(part) != form.Colore2(part);
            const int right = differ != denied ? 1 : 0;
            const QString completed =
                form.Label1.Caption() + QLatin1Char(' ') + form.Command1(right).Caption();
            ClickOn(form.Command1(right));
            // Each tenth answer brings a reward, which takes the sentence away.
            QCOMPARE(form.Label1.Caption(), (task + 1) % 10 == 0 ? QString() : completed);
            ClickOn(form.Command1(2));
            seen << sentence;
        }
        QCOMPARE(seen.size(), level == 3 ? 16 : 8);
    }

    void theInstructionIsThatOfTheWindow_data() { RowsOfModes({0, 1, 2, 3}); }
    void theInstructionIsThatOfTheWindow()
    {
        QFETCH(int, mode);
        MarkedPlayer player;
        SuoniAttivi = false;
        player.Host.Seed(1);
        ModoInput = int16_t(mode);
        QCOMPARE(player.Open<FormEs3>().Label1.Caption(), K(mode == 0 ? 101 : 102));
        QCOMPARE(player.Open<FormEs8>().Label1.Caption(), K(73));
    }

    void aDescriptionToBePaintedIsMadeOfItsOwnPieces_data() { RowsOfLevels(6); }
    void aDescriptionToBePaintedIsMadeOfItsOwnPieces()
    {
        QFETCH(int, level);
        MarkedPlayer player;
        auto &form = player.OpenForManyTasks<FormEs4>(level, 3);
        QSet<QString> seen;
        for (int task = 0; task < Tasks; ++task) {
            player.NextTask(form, level);
            QStringList lines = form.Text1.Text().split(QStringLiteral("\r\n"), Qt::SkipEmptyParts);
            QCOMPARE(lines.size(), level <= 3 ? 1 : 6);
            for (int part = 1; part <= 6; ++part) {
                if (level <= 3 && part != form.QualeParte)
                    continue;
                const int colour = form.ColoreParte(part);
                // The sentence is satisfied by its colour, or by the three others.
                const bool denied = !form.Soluzioni(colour, part);
                QVERIFY2(lines.removeOne(Statement(part, denied, colour) + QLatin1Char('.')),
                         qPrintable(form.Text1.Text()));
                if (level % 3 != 0)
                    QCOMPARE(denied, level % 3 == 2);
                seen << QStringLiteral("%1 %2").arg(part).arg(denied);
            }
        }
        QCOMPARE(seen.size(), level % 3 == 0 ? 12 : 6);
    }

    void aSentenceOfSetsIsMadeOfItsOwnPieces_data() { RowsOfLevels(4); }
    void aSentenceOfSetsIsMadeOfItsOwnPieces()
    {
        QFETCH(int, level);
        MarkedPlayer player;
        auto &form = player.OpenForManyTasks<FormEs5>(level, 3);
        QSet<QString> first;
        QSet<QString> second;
        for (int task = 0; task < Tasks; ++task) {
            player.NextTask(form, level);
            const QString clause = FirstClause(form.PrimoOggetto, form.PrimoColore);
            QString expected = level == 3 ? K(82) : level == 4 ? K(83) : QString();
            expected += clause;
            first << clause;
            if (level > 1) {
                const QString other = SecondClause(level, form.SecondoOggetto, form.SecondoColore);
                expected += other;
                second << other;
            }
            QCOMPARE(form.Label1.Caption().toLower(), expected + QLatin1Char('.'));
        }
        QCOMPARE(first.size(), 6 * 4 + 2 + 2);
        // Level 2 may name no part; level 4 says nothing of clouds.
        QCOMPARE(second.size(), level == 1 ? 0 : level == 2 ? 29 : level == 3 ? 28 : 27);
    }

    void aDescriptionOfTheIntrudersIsMadeOfItsOwnPieces() { DescribesTheFigure<FormEs6>(104); }
    void aDescriptionToGuessIsMadeOfItsOwnPieces() { DescribesTheFigure<FormEs7>(81); }
};

MORLENE_TEST(TestMarkedSentences)
#include "test_marked_sentences.moc"
