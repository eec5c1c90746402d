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

    ScriptedHost Host;
};

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
