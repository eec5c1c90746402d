#include "support/full_screen.h"

#include "core/shared_state.h"
#include "language/language.h"
#include "support/cls_resize.h"

namespace {

// Seen for a moment only: the activated window takes the whole screen.
constexpr uint8_t PercentualeIniziale = 75;

} // namespace

void CaricaFinestra(platform::Form &finestra)
{
    MLSCaricaForm(finestra);
    Ridimensionatore = std::make_shared<clsResize>();
    Ridimensionatore->SetSourceForm(finestra);
    Ridimensionatore->SizeFormToScreen(PercentualeIniziale);
}

void RidimensionaFinestra()
{
    if (Ridimensionatore)
        Ridimensionatore->ResizeControls();
}
