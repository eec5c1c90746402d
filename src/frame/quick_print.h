// The four ways from an exercise to paper. None looks at the input mode or stops the timer.
#pragma once

#include "platform/controls/form.h"

// The window as it stands, without a dialog; a box when it cannot be printed.
void StampaVeloce(platform::Form &finestra);
// Through the dialog, upright (1) or across (2). When it closes the window is activated anew.
void StampaConOpzioni(platform::Form &finestra, int orientamento);
// The choice of pictures to print and colour by hand; likewise.
void FiguraDaColorare();
