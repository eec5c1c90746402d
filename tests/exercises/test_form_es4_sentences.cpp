// "Colora la morlena": the sentences, the colours that satisfy them, and fairness to the child.
#include "exercises/form_es4.h"

#include "exercises/painting_fixture.h"
#include "support/fair_tasks.h"
#include "support/registered_tests.h"

#include <QTest>

using namespace platform;

class TestFormEs4Sentences : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aNegativeSentenceAcceptsTheThreeOtherColours()
    {
        Player player;
        SuoniAttivi = false;
        player.Host.Expect(PaintingTask(AllGreen) + Order({1}));
        auto &form = player.Open<FormEs4>();
        player.Host.Expect(PaintingTask({4, 4, 4, 4, 4, 4}) + Order({4}));
        ChooseLevel(form, 2);
        QCOMPARE(form.Text1.Text(), QStringLiteral("Le finestre non sono gialle."));
        for (int colour = 1; colour <= 4; ++colour)
            QCOMPARE(form.Soluzioni(colour, 4), colour != 4);
        // On level 3 each part draws by itself which kind it gets: 1 denies.
        QList<ScriptedDraw> mixed = {{2, 0}, {2, 0}};
        for (int part = 1; part <= 6; ++part)
            mixed << ScriptedDraw{2, part % 2} << ScriptedDraw{4, 0};
        player.Host.Expect(mixed + Order({5}));
        ChooseLevel(form, 3);
        QCOMPARE(form.Text1.Text(), QStringLiteral("La porta non è verde."));
        QVERIFY(!form.Soluzioni(1, 5));
        QVERIFY(form.Soluzioni(1, 6));
        QVERIFY(!form.Soluzioni(2, 6));
    }

    void capitalsAreWrittenAndSmallLettersAreLeftAsTheyAre()
    {
        Player player;
        SuoniAttivi = false;
        TipoCarattere = QStringLiteral("maiuscolo");
        player.Host.Expect(PaintingTask(AllGreen) + Order({2}));
        auto &form = player.Open<FormEs4>();
        QCOMPARE(form.Text1.Text(), QStringLiteral("IL TETTO È VERDE."));
        TipoCarattere = QStringLiteral("minuscolo");
        Colori(1, 1) = QStringLiteral("verde Nilo");
        player.Host.Expect(PaintingTask(AllGreen) + Order({2}));
        ChooseLevel(form, 1);
        QCOMPARE(form.Text1.Text(), QStringLiteral("Il tetto è verde Nilo."));
    }

    void theSentencesTakeNoKeyboardAndAreNotTyped()
    {
        Player player;
        player.Host.Seed(3);
        auto &form = player.Open<FormEs4>();
        const QString before = form.Text1.Text();
        QTest::keyClick(form.Text1.Widget(), Qt::Key_A);
        QCOMPARE(form.Text1.Text(), before);
        QVERIFY(!form.Text1.HasFocus());
    }

    // The child paints what the sentence says, or for once what it does not say.
    void eachLevelIsFairToTheChild_data() { RowsOfLevels(6); }

    void eachLevelIsFairToTheChild()
    {
        QFETCH(int, level);
        Player player;
        auto &form = player.OpenForManyTasks<FormEs4>(level, 31337);
        const auto partOf = [](const QString &sentence) {
            for (int part = 1; part <= 6; ++part)
                if (sentence.contains(Parts.at(part)))
                    return part;
            return 0;
        };
        const auto holds = [&](const QString &sentence) {
            return SentenceIsTrue(sentence, form.ShockwaveFlash1.Shown());
        };
        int wrongOnes = 0;
        for (int task = 0; task < FairTasks; ++task) {
            const int sentences = level <= 3 ? 6 : 1;
            for (int turn = 0; turn < sentences; ++turn) {
                const QStringList shown =
                    form.Text1.Text().split(QStringLiteral("\r\n"), Qt::SkipEmptyParts);
                QCOMPARE(shown.size(), level <= 3 ? 1 : 6);
                const QString &first = shown.first();
                for (const QString &sentence : shown)
                    do
                        Click(form, partOf(sentence));
                    while (!holds(sentence));
                if ((task + turn) % 5 == 0) {
                    // One part is made wrong on purpose, and the rest is right.
                    do
                        Click(form, partOf(first));
                    while (holds(first));
                    const int errors = Errati;
                    ClickOn(form.Command1(0));
                    QVERIFY2(Errati == errors + 1, qPrintable(first));
                    ++wrongOnes;
                    do
                        Click(form, partOf(first));
                    while (!holds(first));
                }
                const int right = Esatti;
                const int errors = Errati;
                ClickOn(form.Command1(0));
                QVERIFY2(Esatti == right + (level <= 3 ? 1 : 6) && Errati == errors,
                         qPrintable(first));
                player.Host.TakeEvents();
            }
            Errati = 0;
            ClickOn(form.Command1(1));
            player.Host.TakeEvents();
        }
        qInfo("%d tasks painted, %d parts made wrong on purpose", FairTasks, wrongOnes);
    }
};

MORLENE_TEST(TestFormEs4Sentences)
#include "test_form_es4_sentences.moc"
