// A picture box to draw bitmaps on, measured in pixels. What was drawn stays until it is cleared.
#pragma once

#include "platform/controls/visual_control.h"
#include "platform/host/printing.h"

namespace platform {

class DrawingView;

class DrawingBox : public VisualControl {
public:
    DrawingBox(const ControlId &id, const Place &place);

    // Inside, pixels.
    int ScaleWidth() const;
    int ScaleHeight() const;

    void Cls();
    // Stretches the whole bitmap into a rectangle; rows drawn, -1 for a failure.
    int StretchBitmap(const DeviceRectangle &place, const Bitmap &bitmap);
    // The same with the picture of a box. Error 481 when it has none.
    void PaintPicture(const PictureBox &box, const DeviceRectangle &place);
    // What is drawn, as a bitmap file. Errors 61 and 75.
    void SaveImage(const QString &nativePath) const;

protected:
    void Refresh() override;
    void PutInPlace() override;

private:
    DrawingView *m_view;
};

} // namespace platform
