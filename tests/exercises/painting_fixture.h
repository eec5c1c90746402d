// What the tests of "Colora la morlena" share.
#pragma once

#include "exercises/form_es4.h"

#include "support/exercise_fixture.h"
#include "support/hands.h"
#include "support/sentence_reader.h"

#include <QStringList>

const QStringList Parts = {QString(),
                           QStringLiteral("comignolo"),
                           QStringLiteral("tetto"),
                           QStringLiteral("pareti"),
                           QStringLiteral("finestre"),
                           QStringLiteral("porta"),
                           QStringLiteral("gradino")};

// Smoke and clouds absent, then the colour of each part's sentence.
inline QList<ScriptedDraw> PaintingTask(const QList<int> &colours)
{
    QList<ScriptedDraw> draws = {{2, 0}, {2, 0}};
    for (const int colour : colours)
        draws << ScriptedDraw{4, colour - 1};
    return draws;
}

// Which part of 6 comes next, as drawn.
inline QList<ScriptedDraw> Order(const QList<int> &parts)
{
    QList<ScriptedDraw> draws;
    for (const int part : parts)
        draws << ScriptedDraw{6, part - 1};
    return draws;
}

inline void Click(const FormEs4 &form, int part)
{
    ClickOnPart(form.ShockwaveFlash1, part);
}

// Clicks until the part has the colour, one of four.
inline void Paint(const FormEs4 &form, int part, int colour)
{
    while (form.Colorati(part) != colour)
        Click(form, part);
}

inline QString ColourShown(const FormEs4 &form, int part)
{
    return PartsOf(form.ShockwaveFlash1.Shown()).value(Parts.at(part));
}
