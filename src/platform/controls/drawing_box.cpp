#include "platform/controls/drawing_box.h"

#include "platform/controls/picture.h"

#include <QFile>
#include <QImage>
#include <QPainter>
#include <QPixmap>
#include <QWidget>

namespace platform {

class DrawingView : public QWidget {
public:
    QImage Drawn;
    Color Back = SystemButtonFace;

    void Clear()
    {
        Drawn = QImage(size(), QImage::Format_RGB888);
        Drawn.fill(ToQColor(Back));
        update();
    }

    void Draw(const QImage &image, const DeviceRectangle &place)
    {
        const QRect room(place.X, place.Y, place.Width, place.Height);
        if (room.isEmpty() || Drawn.isNull())
            return;
        QPainter painter(&Drawn);
        // Only what is seen is worth drawing: a picture may be asked for far beyond the box.
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawImage(
            room, room.width() < image.width() && room.width() < 4 * width()
                      ? image.scaled(room.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                      : image);
        update();
    }

protected:
    void paintEvent(QPaintEvent *) override { QPainter(this).drawImage(0, 0, Drawn); }
};

DrawingBox::DrawingBox(const ControlId &id, const Place &place)
    : VisualControl(id, place, new DrawingView), m_view(static_cast<DrawingView *>(Widget()))
{
    Cls();
}

int DrawingBox::ScaleWidth() const
{
    return m_view->width();
}

int DrawingBox::ScaleHeight() const
{
    return m_view->height();
}

void DrawingBox::Cls()
{
    m_view->Clear();
}

int DrawingBox::StretchBitmap(const DeviceRectangle &place, const Bitmap &bitmap)
{
    if (!bitmap.Bits || bitmap.BitsPerPixel != 24 ||
        bitmap.Bits->size() != BytesOfBitmap(24, bitmap.Width, bitmap.Height))
        return -1;
    m_view->Draw(QImage(reinterpret_cast<const uchar *>(bitmap.Bits->constData()), bitmap.Width,
                        bitmap.Height, QImage::Format_BGR888),
                 place);
    return bitmap.Height;
}

void DrawingBox::PaintPicture(const PictureBox &box, const DeviceRectangle &place)
{
    const QPixmap picture = box.LoadedPicture();
    if (picture.isNull())
        throw RunTimeError(InvalidPicture, box.Key());
    m_view->Draw(picture.toImage(), place);
}

void DrawingBox::SaveImage(const QString &nativePath) const
{
    QFile file(nativePath);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        throw RunTimeError(PathFileAccess, nativePath);
    if (!m_view->Drawn.save(&file, "BMP") || !file.flush())
        throw RunTimeError(DiskFull, nativePath);
}

void DrawingBox::Refresh()
{
    m_view->Back = BackColor();
    m_view->Clear();
}

void DrawingBox::PutInPlace()
{
    VisualControl::PutInPlace();
    if (m_view->Drawn.size() != m_view->size())
        m_view->Clear();
}

} // namespace platform
