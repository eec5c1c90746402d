// "Insiemi": the four kinds of sentence, the figures made to fit them, and fairness to the child.
#include "exercises/form_es5.h"

#include "exercises/sets_fixture.h"
#include "support/fair_tasks.h"
#include "support/hands.h"
#include "support/registered_tests.h"
#include "support/sentence_reader.h"

#include <QTest>

#include <cstdlib>

using namespace platform;

namespace {

// As a child reads the four kinds of sentence.
bool HoldsOf(const QString &sentence, const QString &figure)
{
    QString text = sentence.toLower();
    text.chop(1);
    const QString atLeast = QStringLiteral("almeno una cosa è vera: che ");
    const QString onlyOne = QStringLiteral("una cosa sola è vera: ");
    if (text.startsWith(atLeast)) {
        const QStringList both = text.mid(atLeast.size()).split(QStringLiteral(" o che "));
        return SentenceIsTrue(both.first(), figure) || SentenceIsTrue(both.last(), figure);
    }
    if (text.startsWith(onlyOne)) {
        const QStringList both =
            text.mid(onlyOne.size()).section(QLatin1Char(','), 0, 0).split(QStringLiteral(" o "));
        return SentenceIsTrue(both.first(), figure) != SentenceIsTrue(both.last(), figure);
    }
    // The step is called "i gradini" in some sentences.
    return SentenceIsTrue(text.replace(QStringLiteral("gradini"), QStringLiteral("gradino")),
                          figure);
}

// Series whose sentence does not tell all of the rule, required as they stand.
bool IsOdd(const FormEs5 &form)
{
    if (form.Livello == 2)
        return form.SecondoOggetto == 9 || (form.SecondoOggetto == 7 && form.SecondoColore > 1);
    return form.Livello == 4 && form.SecondoOggetto == 8;
}

} // namespace

class TestFormEs5Figures : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aHoldingSentenceWithoutSmokeShowsNone()
    {
        Player player;
        player.Host.Expect(QList<ScriptedDraw>{{8, 6}, {2, 0}} + Figure(0, AllGreen, 1, 1));
        const auto &form = player.Open<FormEs5>();
        QCOMPARE(form.Label1.Caption(), QStringLiteral("Non c'è il fumo."));
        QVERIFY(form.ShockwaveFlash1.Shown().endsWith(QStringLiteral("fumo 0, nuvole 1")));
    }

    void cursiveWritesTheSentenceLikeSmallLetters()
    {
        for (const char *style : {"minuscolo", "corsivo"}) {
            Player player;
            TipoCarattere = QLatin1String(style);
            player.Host.Expect(RedRoof());
            QCOMPARE(player.Open<FormEs5>().Label1.Caption(), QStringLiteral("Il tetto è rosso."));
        }
        Player player;
        TipoCarattere = QStringLiteral("maiuscolo");
        player.Host.Expect(RedRoof());
        QCOMPARE(player.Open<FormEs5>().Label1.Caption(), QStringLiteral("IL TETTO È ROSSO."));
    }

    void andOfTwoClausesFailsWhenNotBothHold()
    {
        Player player;
        SuoniAttivi = false;
        player.Host.Expect(RedRoof());
        auto &form = player.Open<FormEs5>();
        // "The roof is red and the steps are blue": both are assigned, whatever was drawn.
        player.Host.Expect(QList<ScriptedDraw>{{8, 1}, {4, 1}, {8, 5}, {4, 2}} +
                           Figure(0, AllGreen, 0, 0));
        ChooseLevel(form, 2);
        QCOMPARE(form.Label1.Caption(), QStringLiteral("Il tetto è rosso e i gradini sono blu."));
        QVERIFY(form.ShockwaveFlash1.Shown().contains(QStringLiteral("tetto FF0000")));
        QVERIFY(form.ShockwaveFlash1.Shown().contains(QStringLiteral("gradino 0000FF")));
        // It fails: drawn true by chance, so both are drawn again, the first part first.
        player.Host.Expect(Figure(1, {1, 2, 1, 1, 1, 3}, 0, 0) +
                           QList<ScriptedDraw>{{4, 1}, {4, 2}, {4, 1}, {4, 0}});
        ClickOn(form.Command1(0));
        QCOMPARE(form.IndiceEsatto, int16_t{1});
        QVERIFY(!player.Host.DrawsLeft());
    }

    // Redrawn, the second part may be one that nothing has: its clause is empty and no figure of
    // the series is ever sent, with either outcome.
    void aNinthPartStopsEveryFigureOfItsSeries()
    {
        Player player;
        SuoniAttivi = false;
        player.Host.Expect(RedRoof());
        auto &form = player.Open<FormEs5>();
        const QString before = form.ShockwaveFlash1.Shown();
        player.Host.Expect(QList<ScriptedDraw>{{8, 1}, {4, 2}, {8, 1}, {4, 0}, {9, 8}, {2, 1}} +
                           Figure(0, {4, 4, 4, 4, 4, 4}, 1, 1));
        ChooseLevel(form, 2);
        QCOMPARE(form.Label1.Caption(), QStringLiteral("Il tetto è blu."));
        QCOMPARE(form.ShockwaveFlash1.Shown(), before);
        QCOMPARE(form.MousePointer(), platform::MousePointer::Hourglass);
        QCOMPARE(form.IndiceEsatto, int16_t{0});
        // The copy shows what was never seen; both operands are looked at, so "fails" stops too.
        player.Host.Expect(Figure(1, AllGreen, 0, 0));
        ClickOn(form.Command1(0));
        QVERIFY(form.ShockwaveFlash2(0).Shown().contains(QStringLiteral("comignolo FFFF00")));
        QCOMPARE(form.ShockwaveFlash1.Shown(), before);
        QCOMPARE(form.MousePointer(), platform::MousePointer::Hourglass);
        QCOMPARE(form.IndiceEsatto, int16_t{1});
        // The other set copies what was not seen either.
        player.Host.Expect(Figure(0, {2, 2, 2, 2, 2, 2}, 0, 0));
        ClickOn(form.Command1(1));
        QVERIFY(form.ShockwaveFlash3(0).Shown().contains(QStringLiteral("comignolo 00FF00")));
        QCOMPARE(form.ShockwaveFlash1.Shown(), before);
        QCOMPARE(player.Host.FatalNumber, 0);
    }

    void onLevelThreeCloudsAreJoinedBothWays()
    {
        Player player;
        SuoniAttivi = false;
        player.Host.Expect(RedRoof());
        auto &form = player.Open<FormEs5>();
        for (const int there : {0, 1}) {
            player.Host.Expect(QList<ScriptedDraw>{{8, 1}, {4, 0}, {8, 7}, {2, there}} +
                               Figure(1, {3, 3, 3, 3, 3, 3}, 0, 1 - there));
            ChooseLevel(form, 3);
            QCOMPARE(form.Label1.Caption(),
                     there != 0 ? QStringLiteral("Almeno una cosa è vera: che il tetto è verde o "
                                                 "che ci sono le nuvole.")
                                : QStringLiteral("Almeno una cosa è vera: che il tetto è verde o "
                                                 "che non ci sono le nuvole."));
        }
    }

    void aNinthPartBesideTheChimneyIsDrawnAgain()
    {
        Player player;
        SuoniAttivi = false;
        player.Host.Expect(RedRoof());
        auto &form = player.Open<FormEs5>();
        player.Host.Expect(
            QList<ScriptedDraw>{{8, 0}, {4, 2}, {8, 0}, {4, 0}, {9, 8}, {2, 1}, {9, 2}, {4, 3}} +
            Figure(0, AllGreen, 0, 0));
        ChooseLevel(form, 2);
        QCOMPARE(form.Label1.Caption(),
                 QStringLiteral("Il comignolo è blu e le pareti sono gialle."));
    }

    void aRedrawnSmokeWithAColourSaysNoAndShowsYes()
    {
        Player player;
        SuoniAttivi = false;
        player.Host.Expect(RedRoof());
        auto &form = player.Open<FormEs5>();
        player.Host.Expect(QList<ScriptedDraw>{{8, 1}, {4, 2}, {8, 1}, {4, 0}, {9, 6}, {4, 2}} +
                           Figure(0, AllGreen, 0, 0));
        ChooseLevel(form, 2);
        QCOMPARE(form.Label1.Caption(), QStringLiteral("Il tetto è blu e non c'è il fumo."));
        QVERIFY(form.ShockwaveFlash1.Shown().contains(QStringLiteral("fumo 1")));
        // To fail, it needs nothing drawn again: no smoke has a colour.
        player.Host.Expect(Figure(1, {1, 3, 1, 1, 1, 1}, 0, 0));
        ClickOn(form.Command1(0));
        QVERIFY(!player.Host.DrawsLeft());
        QCOMPARE(form.IndiceEsatto, int16_t{1});
        QVERIFY(form.ShockwaveFlash1.Shown().endsWith(QStringLiteral("fumo 0, nuvole 0")));
    }

    // Unlike smoke, redrawn clouds have no colour.
    void redrawnCloudsAreThereOrNot()
    {
        Player player;
        SuoniAttivi = false;
        player.Host.Expect(RedRoof());
        auto &form = player.Open<FormEs5>();
        player.Host.Expect(QList<ScriptedDraw>{{8, 1}, {4, 2}, {8, 1}, {4, 0}, {9, 7}, {2, 1}} +
                           Figure(0, AllGreen, 0, 0));
        ChooseLevel(form, 2);
        QCOMPARE(form.Label1.Caption(), QStringLiteral("Il tetto è blu e ci sono le nuvole."));
        QVERIFY(form.ShockwaveFlash1.Shown().endsWith(QStringLiteral("nuvole 1")));
        QVERIFY(!player.Host.DrawsLeft());
    }

    void orHoldsWithOneOrTheOtherOrBoth()
    {
        Player player;
        SuoniAttivi = false;
        player.Host.Expect(RedRoof());
        auto &form = player.Open<FormEs5>();
        const QList<int> blue = {3, 3, 3, 3, 3, 3};
        // Drawn as the same part once, and then the door; the outcome of 150 says which holds.
        const QList<ScriptedDraw> sentence = {{8, 1}, {4, 0}, {8, 1}, {8, 4}, {4, 0}};
        const QList<QPair<bool, bool>> holds = {{false, true}, {true, false}, {true, true}};
        for (int which = 0; which < 3; ++which) {
            player.Host.Expect(sentence + Figure(0, blue, 0, 0) +
                               QList<ScriptedDraw>{{150, which + 3}});
            ChooseLevel(form, 3);
            QCOMPARE(form.Label1.Caption(), QStringLiteral("Almeno una cosa è vera: che il tetto è "
                                                           "verde o che la porta è verde."));
            const QString shown = form.ShockwaveFlash1.Shown();
            QCOMPARE(shown.contains(QStringLiteral("tetto 00FF00")), holds.at(which).first);
            QCOMPARE(shown.contains(QStringLiteral("porta 00FF00")), holds.at(which).second);
        }
        // Before that neither may hold: drawn again while one does, also when it is to fail.
        player.Host.Expect(sentence + Figure(1, AllGreen, 0, 0) +
                           QList<ScriptedDraw>{{4, 2}, {4, 0}, {4, 1}, {4, 1}});
        ChooseLevel(form, 3);
        QVERIFY(!player.Host.DrawsLeft());
        QVERIFY(form.ShockwaveFlash1.Shown().contains(QStringLiteral("porta FF0000")));
    }

    void eitherHoldsWithExactlyOne()
    {
        Player player;
        SuoniAttivi = false;
        player.Host.Expect(RedRoof());
        auto &form = player.Open<FormEs5>();
        const QList<int> blue = {3, 3, 3, 3, 3, 3};
        // The part and its value are drawn again together.
        const QList<ScriptedDraw> sentence = {{8, 1}, {4, 0}, {8, 1}, {4, 1}, {8, 5}, {4, 0}};
        struct Case {
            int Outcome;
            int Which;
            bool Roof;
            bool Step;
        };
        for (const Case &one : {Case{0, 1, true, false}, Case{0, 0, false, true},
                                Case{1, 1, true, true}, Case{1, 0, false, false}}) {
            player.Host.Expect(sentence + Figure(one.Outcome, blue, 0, 0) +
                               QList<ScriptedDraw>{{100, 40 + one.Which}});
            ChooseLevel(form, 4);
            QCOMPARE(form.Label1.Caption(),
                     QStringLiteral("Una cosa sola è vera: il tetto è verde o il gradino è verde,  "
                                    "non tutte e due."));
            const QString shown = form.ShockwaveFlash1.Shown();
            QCOMPARE(shown.contains(QStringLiteral("tetto 00FF00")), one.Roof);
            QCOMPARE(shown.contains(QStringLiteral("gradino 00FF00")), one.Step);
        }
        // Before that neither may hold: both are drawn again while one does.
        for (const int outcome : {0, 1}) {
            player.Host.Expect(
                sentence + Figure(outcome, AllGreen, 0, 0) +
                QList<ScriptedDraw>{{4, 2}, {4, 0}, {4, 0}, {4, 2}, {4, 1}, {4, 3}, {100, 0}});
            ChooseLevel(form, 4);
            QVERIFY(!player.Host.DrawsLeft());
            QVERIFY(form.ShockwaveFlash1.Shown().contains(QStringLiteral("tetto FF0000")));
            QCOMPARE(form.ShockwaveFlash1.Shown().contains(QStringLiteral("gradino 00FF00")),
                     outcome == 0);
        }
    }

    void aSecondClauseAboutCloudsIsNeverWrittenOnLevelFour()
    {
        Player player;
        SuoniAttivi = false;
        player.Host.Expect(RedRoof());
        auto &form = player.Open<FormEs5>();
        player.Host.Expect(QList<ScriptedDraw>{{8, 1}, {4, 0}, {8, 7}, {2, 1}} +
                           Figure(0, {3, 3, 3, 3, 3, 3}, 0, 0) + QList<ScriptedDraw>{{100, 0}});
        ChooseLevel(form, 4);
        QCOMPARE(form.Label1.Caption(), QStringLiteral("Una cosa sola è vera: il tetto è verde."));
        QVERIFY(form.ShockwaveFlash1.Shown().contains(QStringLiteral("nuvole 1")));
    }

    void theStepTakesThreeColumnsOfAdjectives()
    {
        Player player;
        SuoniAttivi = false;
        player.Host.Expect(RedRoof());
        auto &form = player.Open<FormEs5>();
        const QList<int> blue = {3, 3, 3, 3, 3, 3};
        player.Host.Expect(QList<ScriptedDraw>{{8, 1}, {4, 0}, {8, 5}, {4, 1}} +
                           Figure(0, blue, 0, 0));
        ChooseLevel(form, 2);
        QVERIFY(form.Label1.Caption().contains(QStringLiteral("i gradini sono rossi")));
        player.Host.Expect(QList<ScriptedDraw>{{8, 1}, {4, 0}, {8, 5}, {4, 1}} +
                           Figure(0, blue, 0, 0) + QList<ScriptedDraw>{{150, 0}});
        ChooseLevel(form, 3);
        QVERIFY(form.Label1.Caption().contains(QStringLiteral("il gradino è rosso")));
        player.Host.Expect(QList<ScriptedDraw>{{8, 1}, {4, 0}, {8, 5}, {4, 1}} +
                           Figure(0, blue, 0, 0) + QList<ScriptedDraw>{{100, 0}});
        ChooseLevel(form, 4);
        QVERIFY(form.Label1.Caption().contains(QStringLiteral("il gradino è rossa")));
    }

    void eachLevelIsFairToTheChild_data() { RowsOfLevels(4); }

    void eachLevelIsFairToTheChild()
    {
        QFETCH(int, level);
        Player player;
        SuoniAttivi = false;
        player.Host.Seed(static_cast<uint32_t>(level) * 65537);
        auto &form = player.Open<FormEs5>();
        form.LockDrawing(true);
        int judged = 0;
        int odd = 0;
        int trueOnes = 0;
        while (judged < FairTasks) {
            ChooseLevel(form, level);
            NumeroEserciziEseguiti = 1;
            player.Host.TakeEvents();
            if (IsOdd(form)) {
                ++odd;
                continue;
            }
            for (int figure = 0; figure < 2; ++figure) {
                const QString shown = form.ShockwaveFlash1.Shown();
                const bool holds = HoldsOf(form.Label1.Caption(), shown);
                trueOnes += holds ? 1 : 0;
                ++judged;
                const int before = Esatti;
                ClickOn(form.Command1(holds ? 0 : 1));
                QVERIFY2(Esatti == before + 1, qPrintable(form.Label1.Caption() + shown));
                QCOMPARE(Errati, int16_t{0});
            }
            player.Host.TakeEvents();
        }
        qInfo("%d figures judged, %d fitted, %d odd series passed over", judged, trueOnes, odd);
        QVERIFY(std::abs(trueOnes - judged / 2) < FiveDeviations(judged));
    }
};

MORLENE_TEST(TestFormEs5Figures)
#include "test_form_es5_figures.moc"
