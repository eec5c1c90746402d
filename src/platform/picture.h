// Pictures of the program: drawings that belong to the windows, by name, and the two controls that
// show them, the picture box (which can take the keyboard) and the lighter image.
#pragma once

#include "platform/visual_control.h"

class QPixmap;
class QSize;

namespace platform {

// The drawing `name` (without folder and ending) in that size, logical pixels, for a screen of
// `ratio` device pixels a logical one. Kept once drawn. Empty when there is no such drawing.
QPixmap DrawnPicture(const QString &name, const QSize &size, double ratio);

class PictureView;

class PictureBox : public VisualControl {
public:
    PictureBox(const ControlId &id, const Place &place, const QString &picture = {});
    void SetPicture(const QString &name);
    void SetSpokenName(const QString &name);
    // A line round it, one pixel wide.
    void SetBordered(bool bordered);

protected:
    void Refresh() override;
    PictureView *m_view;
};

class Image : public PictureBox {
public:
    // An image has no back colour of its own and takes no keyboard.
    Image(const ControlId &id, const Place &place, const QString &picture = {});
};

} // namespace platform
