// The adult's window: six pages on which the current player's settings are changed. There is no
// cancel; each control writes its variable at once, and leaving saves the profile.
#pragma once

#include "configuration/config_players.h"
#include "platform/controls/button.h"
#include "platform/controls/check_box.h"
#include "platform/controls/control_array.h"
#include "platform/controls/form.h"
#include "platform/controls/frame.h"
#include "platform/controls/label.h"
#include "platform/controls/list_box.h"
#include "platform/controls/menu.h"
#include "platform/controls/movie_control.h"
#include "platform/controls/option_button.h"
#include "platform/controls/picture.h"
#include "platform/controls/scroll_bar.h"
#include "platform/controls/tab_strip.h"
#include "platform/controls/text_box.h"

class FormConfigura : public platform::Form {
public:
    FormConfigura();

    platform::Label Label3;         // the word before the player's name
    platform::Label Label4;         // the player's name
    platform::Label LabelPerColore; // hidden; its text colour carries a dialog's answer
    platform::TabStrip TabStrip1;

    platform::Frame FrameUtente;
    platform::ControlArray<platform::OptionButton> OptionUtente;
    platform::ListBox ListModificaUtente;
    platform::TextBox TextNuovoUtente;
    platform::CheckBox CheckSalvaUtente;

    platform::Frame FrameMorlene;
    platform::ControlArray<platform::PictureBox> CasellaColorata;
    platform::ControlArray<platform::OptionButton> Option2; // a row of `Colori` each
    platform::MovieControl ShockwaveFlash1;
    platform::Button Command4;

    platform::Frame FrameScelteDid;
    platform::CheckBox Check1;

    platform::Frame FrameFonts;
    platform::Frame FrameScelte;
    platform::OptionButton minuscolo;
    platform::OptionButton maiuscolo;
    platform::OptionButton corsivo;
    platform::Frame Frame6;
    platform::ControlArray<platform::OptionButton> OptionColoreCasualeFisso;
    platform::Button CommandSceltaColori;
    platform::Frame Frame5;
    platform::Button CommandSceltaFont;
    platform::Button CommandSceltaColoreFont;
    platform::Button CommandSceltaSfondoTesto;
    platform::Button CommandSceltaColoreBottoni;
    platform::Button Command1;
    platform::ControlArray<platform::Label> LabelFontSelezionato;

    platform::Frame FrameSuoni;
    platform::CheckBox CheckSuoni;

    platform::Frame FramePunt;
    platform::ControlArray<platform::OptionButton> Option4; // a `ModoInput` each
    platform::CheckBox CheckDisabilitaMousePersonalizzato;
    platform::Label Label7;
    platform::HScrollBar HScroll3;
    platform::Label Label1;
    platform::PictureBox PictureScansione;

    platform::MenuItem mnuEsci;

    // Brings all controls into line with the settings in force.
    void ImpostaConfigurazioni();
    void NascondiFrame(); // the six pages
    // Paints the house of the second page anew, and writes the colours' names.
    void Preparamorlena();

private:
    void Disegna();
    void DisegnaCaselle();
    void DisegnaFontEColori();
    void Collega();
    void CollegaFontEColori();
    void Attiva();
    void Ridimensiona();
    void MostraPagina();

    void ScegliCasella(int casella);
    void UsaCarattere(const QString &tipo);
    void CambiaFont();
    void CambiaModoInput(int modo);
    void ScriviVelocita();
    void Esci();

    PaginaUtenti m_utenti{Label4, OptionUtente, ListModificaUtente, TextNuovoUtente,
                          [this] { ImpostaConfigurazioni(); }};
};
