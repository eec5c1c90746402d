// The nine items of the menu: caption, picture, place, the window each opens and its title in the
// log.
#pragma once

#include <array>

struct VoceMenu {
    const char *Titolo; // by design
    const char *Figura;
    double Sinistra; // of the caption, twips
    double Alto;
    const char *Finestra;
    const char *ChiaveTitolo;
};

constexpr int QuanteVoci = 9;
constexpr int Esci = QuanteVoci - 1; // the item that ends the program, the last one

// The numbering of the windows does not follow the order of the items.
constexpr std::array<VoceMenu, QuanteVoci> Voci = {{
    {"Vero o falso", "vero_o_falso", 1200, 360, "FormEs1", "0065"},
    {"Uguale - diverso", "uguale_diverso", 1200, 1680, "FormEs2", "0066"},
    {"Uguali - 1°", "uguali_1", 1200, 3000, "FormEs8", "0067"},
    {"Uguali - 2°", "uguali_2", 1200, 4320, "FormEs3", "0068"},
    {"Colora la morlena", "colora", 3600, 360, "FormEs4", "0069"},
    {"Insiemi", "insiemi", 3600, 1680, "FormEs5", "0070"},
    {"Trova gli intrusi", "intrusi", 3600, 3000, "FormEs6", "0071"},
    {"Indovina chi?", "indovina", 3600, 4320, "FormEs7", "0072"},
    {"esci", "esci", 5880, 4320, "", ""},
}};
