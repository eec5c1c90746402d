// From pixels to pages: grabs a window into memory, and sends a window or a picture as documents of
// one page, one for each copy.
#pragma once

#include "platform/controls/form.h"
#include "platform/host/printing.h"

namespace platform {
class PictureBox;
}

// The window's pixels into `MemoriaImmagine`; they stay for the preview and for `Print_Form`.
bool Legge_Form(platform::Form &finestra);

// What `Legge_Form` has read, to `hDCStampante`; the memory is given back.
bool Print_Form(const platform::DeviceRectangle &area);

// The picture of the box, read only now.
bool Print_PictureBox(platform::PictureBox &figura, const platform::DeviceRectangle &area);
