// What the tests of "Vero o falso" share.
#pragma once

#include "support/exercise_fixture.h"

// The draws of a sentence on the roof: 0 for a true one, then the part; a false one draws the other
// colour too.
const QList<ScriptedDraw> TrueOnTheRoof = {{2, 0}, {8, 1}};
const QList<ScriptedDraw> FalseOnTheRoof = {{2, 1}, {8, 1}, {4, 1}};
