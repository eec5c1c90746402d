// A player at the machine, for the tests of windows: the defaults in force, the sentences of the
// Italian language file, and windows opened as the menu opens them.
#pragma once

#include "core/profile.h"
#include "core/shared_state.h"
#include "core/start.h"
#include "core/windows.h"
#include "support/scripted_host.h"

#include "menu/form_menu.h"

#include <QTest>
#include <QWidget>

class Player {
public:
    Player()
    {
        AzzeraStatoCondiviso();
        FileUtente = QStringLiteral("C:\\ImpostazioniProgrammiTesmi\\morlenekvt\\_predefinito.INI");
        NomeUtente = QStringLiteral("_predefinito");
        ImpostazioniPredefinite();
        CaricaMessaggi();
        EtichettaEsatti = QStringLiteral(" Esatti");
        EtichettaErrati = QStringLiteral(" Errati");
        EtichettaLivello = QStringLiteral(" Livello");
        RegistraFinestra(QStringLiteral("FormMenu"),
                         []() -> platform::Form * { return new FormMenu; });
    }

    // Opens a window of the exercise as the first row of the log.
    template <typename Window> Window &Open()
    {
        NumeroEserciziEseguiti = 1;
        auto *window = new Window;
        window->Show();
        QCoreApplication::processEvents();
        return *window;
    }

    // The same at a level, with real draws, silent, and unseen: thousands of tasks
    // are judged by what is shown, not by its pixels.
    template <typename Window> Window &OpenForManyTasks(int level, uint32_t seed)
    {
        SuoniAttivi = false;
        Host.Seed(static_cast<uint32_t>(level) * seed);
        auto &window = Open<Window>();
        if (level > 1)
            window.mnuLiv.OnClick(level);
        window.LockDrawing(true);
        Host.Watching = false;
        return window;
    }

    ScriptedHost Host;
};

// Rows of a test that is the same on each level, or in each of several input modes.
inline void RowsOfLevels(int count)
{
    QTest::addColumn<int>("level");
    for (int level = 1; level <= count; ++level)
        QTest::addRow("level %d", level) << level;
}

inline void RowsOfModes(const QList<int> &modes)
{
    QTest::addColumn<int>("mode");
    for (const int mode : modes)
        QTest::addRow("mode %d", mode) << mode;
}

inline void ClickOn(const platform::VisualControl &control)
{
    QTest::mouseClick(control.Widget(), Qt::LeftButton);
}

inline void MoveOver(const platform::VisualControl &control)
{
    QTest::mouseMove(control.Widget());
    QCoreApplication::processEvents();
}

inline void PressAndRelease(const platform::VisualControl &control, Qt::Key key)
{
    QTest::keyClick(control.Widget(), key);
}

// The draws of a colouring: six parts of 4 colours, smoke and clouds of 2.
inline QList<ScriptedDraw> Colouring(const QList<int> &parts, int smoke, int clouds)
{
    QList<ScriptedDraw> draws;
    for (const int part : parts)
        draws << ScriptedDraw{4, part - 1};
    return draws << ScriptedDraw{2, smoke} << ScriptedDraw{2, clouds};
}

const QList<int> AllGreen = {1, 1, 1, 1, 1, 1};
