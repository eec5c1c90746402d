// The two controls that show drawings of the program by name: the picture box (which can take the
// keyboard) and the lighter image.
#pragma once

#include "platform/controls/visual_control.h"

class QPixmap;

namespace platform {

class PictureView;

class PictureBox : public VisualControl {
public:
    PictureBox(const ControlId &id, const Place &place, const QString &picture = {});
    // A line round it, one pixel wide.
    void SetBordered(bool bordered);

    // What the box shows, as a picture file of its own: at least as fine as paper needs. Errors 61
    // and 75.
    void SaveImage(const QString &nativePath) const;
    // Shows the picture of a file from now on, as large as the box; empty: none. Error 53 or 481
    // for a file that is not there or holds no picture.
    void LoadPicture(const QString &nativePath);
    // The picture of the file that was loaded; empty when there is none.
    QPixmap LoadedPicture() const;

protected:
    void Refresh() override;
    // Where a click does something, Space and Enter do it, and an arrow goes on to the next picture
    // of the array that way. The pictures of an array may have one tab stop between them: the
    // arrows take it along.
    bool TakeKey(int code) override;
    PictureView *m_view;

private:
    PictureBox *Neighbour(int arrow) const;
};

class Image : public PictureBox {
public:
    // An image has no back colour of its own and takes no keyboard.
    Image(const ControlId &id, const Place &place, const QString &picture = {});
};

} // namespace platform
