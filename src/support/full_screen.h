// What every window that fills the screen does when it is loaded and when its size changes.
#pragma once

namespace platform {
class Form;
}

// Texts in the language in force, then a resizer of its own in place of the last window's.
void CaricaFinestra(platform::Form &finestra);
// Scales the controls of the window that was loaded last.
void RidimensionaFinestra();
