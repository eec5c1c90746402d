// The eight exercises by number, and a child that does each of them with the mouse.
#pragma once

#include "exercises/form_es1.h"
#include "exercises/form_es2.h"
#include "exercises/form_es3.h"
#include "exercises/form_es4.h"
#include "exercises/form_es5.h"
#include "exercises/form_es6.h"
#include "exercises/form_es7.h"
#include "exercises/form_es8.h"

#include "support/exercise_fixture.h"
#include "support/hands.h"

#include <QTest>

inline void RowsOfExercises()
{
    QTest::addColumn<int>("exercise");
    for (int exercise = 1; exercise <= 8; ++exercise)
        QTest::addRow("exercise %d", exercise) << exercise;
}

inline FinestraEsercizio &OpenExercise(Player &player, int exercise)
{
    switch (exercise) {
    case 1:
        return player.Open<FormEs1>();
    case 2:
        return player.Open<FormEs2>();
    case 3:
        return player.Open<FormEs3>();
    case 4:
        return player.Open<FormEs4>();
    case 5:
        return player.Open<FormEs5>();
    case 6:
        return player.Open<FormEs6>();
    case 7:
        return player.Open<FormEs7>();
    default:
        return player.Open<FormEs8>();
    }
}

// The button that asks for the next task.
inline platform::Button &NextTaskButton(FinestraEsercizio &form)
{
    const bool answersAreButtons = dynamic_cast<TreBottoni *>(&form) != nullptr;
    const bool paints = dynamic_cast<FormEs4 *>(&form) != nullptr;
    return form.Command1(answersAreButtons ? 2 : paints ? 1 : 0);
}

// Clicks on a part of either house; smoke and clouds only where they are.
inline void ClickOnDifference(const Differenze &form, int part)
{
    if (const auto *pictures = dynamic_cast<const FormEs8 *>(&form)) {
        ClickOn(pictures->Image1(part - 1));
        return;
    }
    ClickOnPart(form.ColoriFigura1(part) != 0 ? form.ShockwaveFlash1 : form.ShockwaveFlash2, part);
}

inline void PaintWithTheMouse(FormEs4 &form, int part)
{
    do
        ClickOnPart(form.ShockwaveFlash1, part);
    while (!form.Soluzioni(form.Colorati(part), part));
}

// Does the task that is shown without a mistake, up to where the next one can be asked for.
inline void DoTheTask(FinestraEsercizio &form)
{
    if (auto *sorted = dynamic_cast<FormEs5 *>(&form)) {
        while (!sorted->Command1(2).Enabled())
            ClickOn(sorted->Command1(sorted->IndiceEsatto));
    } else if (auto *truth = dynamic_cast<FormEs1 *>(&form)) {
        ClickOn(truth->Command1(truth->IndiceEsatto));
    } else if (auto *alike = dynamic_cast<FormEs2 *>(&form)) {
        ClickOn(alike->Command1(alike->Diverso(alike->QualeParte)));
    } else if (auto *painted = dynamic_cast<FormEs4 *>(&form)) {
        while (!painted->Command1(1).Enabled()) {
            if (painted->Livello <= 3)
                PaintWithTheMouse(*painted, painted->QualeParte);
            else
                for (int part = 1; part <= PartiDipinte; ++part)
                    PaintWithTheMouse(*painted, part);
            ClickOn(painted->Command1(0));
        }
    } else if (auto *differ = dynamic_cast<Differenze *>(&form)) {
        for (int part = 1; part <= Nuvole; ++part)
            if (differ->ParteDiversa(part) == 1)
                ClickOnDifference(*differ, part);
    } else if (auto *intruders = dynamic_cast<FormEs6 *>(&form)) {
        for (int figure = 0; figure < intruders->NumeroFigure; ++figure)
            if (figure != intruders->FiguraCercata)
                ClickOn(intruders->ShockwaveFlash1(figure));
    } else if (auto *found = dynamic_cast<FormEs7 *>(&form)) {
        ClickOn(found->ShockwaveFlash1(found->FiguraCercata));
    }
    if (!NextTaskButton(form).Enabled())
        QTest::qFail("the task is not done", __FILE__, __LINE__);
}
