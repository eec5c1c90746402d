// Windows are designed once, in twips, and fill screens of any size: remembers the designed place
// of each control and scales all of them by the ratios of the window's inner size, never the fonts.
#pragma once

#include "platform/controls/form.h"

#include <QString>

#include <cstdint>
#include <vector>

namespace platform {
class Control;
}

class clsResize {
public:
    // The window is referred to weakly: when it is gone, nothing happens any more.
    void SetSourceForm(platform::Form &finestra);
    platform::Form *SourceForm() const { return m_finestra.Get(); }

    // Measures the design anew.
    void ReInitialise();
    // Gives the window that percentage of the screen, centred.
    void SizeFormToScreen(uint8_t percentuale);
    // A tag that begins with "@" lists what is scaled: L, T, W, H; any other tag scales all four.
    void ResizeControls();

private:
    struct Misure {
        platform::Control *Controllo;
        int32_t Sinistra = 0;  // X1 of a line
        int32_t Alto = 0;      // Y1
        int32_t Larghezza = 0; // X2
        int32_t Altezza = 0;   // Y2
    };

    static void Scala(const Misure &misure, double orizzontale, double verticale);

    platform::FormRef m_finestra;
    int32_t m_larghezza = 0; // designed inner size
    int32_t m_altezza = 0;
    bool m_daInizializzare = true;
    std::vector<Misure> m_controlli;
};
