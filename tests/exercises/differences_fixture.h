// What the tests of the two exercises with differing houses share.
#pragma once

#include "exercises/differences.h"
#include "support/exercise_fixture.h"
#include "support/hands.h"

// All green without smoke and clouds; then the parts that differ with their colours on the second.
inline QList<ScriptedDraw> Task(const QList<ScriptedDraw> &differences)
{
    return Colouring(AllGreen, 0, 0) + differences;
}

const QList<ScriptedDraw> RedRoof = {{8, 1}, {4, 1}};

// Part numbers in which the two figures differ, by what is shown.
inline QList<int> DifferencesShown(const Differenze &form)
{
    const QStringList one = form.ShockwaveFlash1.Shown().split(QStringLiteral(", "));
    const QStringList other = form.ShockwaveFlash2.Shown().split(QStringLiteral(", "));
    QList<int> parts;
    for (int i = 0; i < one.size(); ++i)
        if (one.at(i) != other.at(i))
            parts << i + 1;
    return parts;
}
