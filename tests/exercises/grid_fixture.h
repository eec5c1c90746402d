// What the tests of the two exercises with a grid of houses share.
#pragma once

#include "exercises/form_es6.h"
#include "exercises/form_es7.h"
#include "support/exercise_fixture.h"
#include "support/hands.h"
#include "support/sentence_reader.h"

#include <QTest>

#include <algorithm>

inline void RowsOfGrids()
{
    QTest::addColumn<int>("exercise");
    QTest::newRow("Trova gli intrusi") << 6;
    QTest::newRow("Indovina chi?") << 7;
}

inline GrigliaFigure &OpenGrid(Player &player, int exercise)
{
    if (exercise == 6)
        return player.Open<FormEs6>();
    return player.Open<FormEs7>();
}

// The draws of a task: the figure described, a colour for the six parts of each figure and its
// smoke and clouds, then the order of the eight lines.
inline QList<ScriptedDraw> GridTask(int figures, int described, const QList<int> &colours = {})
{
    QList<ScriptedDraw> draws = {{figures, described}};
    for (int figure = 0; figure < figures; ++figure) {
        const int colour = figure < colours.size() ? colours.at(figure) : 1;
        draws += Colouring({colour, colour, colour, colour, colour, colour}, 0, 0);
    }
    for (int part = 0; part < 8; ++part)
        draws << ScriptedDraw{8, part};
    return draws;
}

inline void ClickOnFigure(GrigliaFigure &form, int figure)
{
    ClickOn(form.ShockwaveFlash1(figure));
}

inline QList<int> FiguresShown(const GrigliaFigure &form)
{
    QList<int> shown;
    for (const platform::MovieControl &figure : form.ShockwaveFlash1)
        if (figure.Visible())
            shown << figure.Index();
    return shown;
}

// As a child reads: the figures of which every line of the description is true.
inline QList<int> FiguresThatFit(const GrigliaFigure &form)
{
    const QStringList lines = form.Text1.Text().split(QStringLiteral("\r\n"), Qt::SkipEmptyParts);
    QList<int> fitting;
    for (int figure = 0; figure < form.NumeroFigure; ++figure) {
        const QMap<QString, QString> parts = PartsOf(form.ShockwaveFlash1(figure).Shown());
        if (std::all_of(lines.begin(), lines.end(),
                        [&](const QString &line) { return SentenceIsTrue(line, parts); }))
            fitting << figure;
    }
    return fitting;
}

// Whether the frame stands on that figure.
inline bool FrameIsOn(const GrigliaFigure &form, int figure)
{
    return form.Shape1.Visible() && form.Shape1.Left() == form.ShockwaveFlash1(figure).Left() &&
           form.Shape1.Top() == form.ShockwaveFlash1(figure).Top();
}

inline bool IsDoneByScanning(const GrigliaFigure &form)
{
    return form.Command1(0).BackColor() == platform::ToColor(ColorePulsantiSelezionati);
}
