// The page of the players: choosing one, making one. A player is a profile file, and the settings
// in force are saved to the old one first.
#pragma once

#include "platform/controls/control_array.h"
#include "platform/controls/label.h"
#include "platform/controls/list_box.h"
#include "platform/controls/option_button.h"
#include "platform/controls/text_box.h"

#include <functional>

class PaginaUtenti {
public:
    // `nome` shows the player in force, `tipi` are the default player, one that is there and a new
    // one. `caricato` runs when the settings of another player are in force.
    PaginaUtenti(platform::Label &nome, platform::ControlArray<platform::OptionButton> &tipi,
                 platform::ListBox &esistenti, platform::TextBox &nuovo,
                 std::function<void()> caricato);

    // Both save first, and may leave with an error of that file.
    void ScegliTipo(); // which of the three was chosen
    void Modifica();   // a player of the list was chosen
    // The new name changed, letter by letter; nothing is saved yet.
    void ScriviNuovo();

private:
    platform::Label &m_nome;
    platform::ControlArray<platform::OptionButton> &m_tipi;
    platform::ListBox &m_esistenti;
    platform::TextBox &m_nuovo;
    std::function<void()> m_caricato;
};
