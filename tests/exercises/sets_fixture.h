// What the tests of "Insiemi" share.
#pragma once

#include "support/exercise_fixture.h"

// The draws of a figure: the outcome, an even number of 100 for one that fits, then eight parts.
inline QList<ScriptedDraw> Figure(int outcome, const QList<int> &parts, int smoke, int clouds)
{
    return QList<ScriptedDraw>{{100, 50 + outcome}} + Colouring(parts, smoke, clouds);
}

// "Il tetto è rosso", which holds.
inline QList<ScriptedDraw> RedRoof()
{
    return QList<ScriptedDraw>{{8, 1}, {4, 1}} + Figure(0, AllGreen, 0, 0);
}
