// The hub of the program: nine pictured items, the list of players, the menus of the adult.
#pragma once

#include "platform/controls/combo_box.h"
#include "platform/controls/control_array.h"
#include "platform/controls/form.h"
#include "platform/controls/label.h"
#include "platform/controls/menu.h"
#include "platform/controls/picture.h"
#include "platform/controls/timer.h"

#include <cstdint>

class FormMenu : public platform::Form {
public:
    FormMenu();

    int16_t PosizioneScansione = 0; // item that the scanning has reached, 0 to 8

    platform::ControlArray<platform::Image> Image1;
    platform::ControlArray<platform::Label> Command1; // labels, despite the name
    platform::ComboBox Combo1;
    platform::Label LabelDimensionaFont;
    platform::PictureBox PictureScansioneAutomatica;
    platform::PictureBox PictureScansioneManuale;
    platform::Timer Timer1;
    platform::MenuItem mnuConfigura;
    platform::MenuItem mnuEserciziEseguiti;
    platform::MenuItem mnuInfo;
    platform::MenuItem mnuDocum;
    platform::MenuItem mnuAbout;
    platform::MenuItem mnuLanguages;
    platform::ControlArray<platform::MenuItem> mnuLanguage;

    // Lists the players, of whom the current one is chosen: a click, which saves and loads him.
    void RecuperaUtenti();
    // Dresses the menu for the current player: colours, letters, pointer, input mode.
    void ImpostaUtente();
    // Lists the languages and ticks the one in force; a box when there is none.
    void MLSFillMenuLanguages();

private:
    void Disegna();
    void Collega();
    void Carica();
    void ComponiTitoli();
    void Attiva();
    void AvviaEsercizi(int16_t &indice);
    void ChiudiProgramma();
    void Accendi(int indice);
    void Spegni();
    void CambiaLingua(int indice);
    void CambiaUtente();
    void DimensionaCaratteri();
    void ImpostaModoInput();
    void Passo(int verso);
    void Scegli();
    void Tick();
    void TastoManuale(int tasto);
    void TastoAutomatico(int tasto);
};
