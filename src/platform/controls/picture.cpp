#include "platform/controls/picture.h"

#include "platform/movies/drawn_picture.h"

#include <QFile>
#include <QPainter>
#include <QPixmap>
#include <QWidget>

#include <algorithm>

namespace platform {

class PictureView : public QWidget {
public:
    PictureView() { DrawnAs(*this, QAccessible::Graphic); }

    QString Picture;
    QPixmap Loaded; // stands for the drawing when there is one
    bool Filled = true;
    bool Bordered = false;
    Color Back = SystemButtonFace;

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        if (Filled)
            painter.fillRect(rect(), ToQColor(Back));
        if (!Loaded.isNull())
            painter.drawPixmap(rect(), Loaded);
        else if (!Picture.isEmpty())
            PaintPicture(painter, Picture, size(), devicePixelRatioF());
        if (Bordered) {
            painter.setPen(ToQColor(Ink));
            painter.drawRect(rect().adjusted(0, 0, -1, -1));
        }
    }
};

PictureBox::PictureBox(const ControlId &id, const Place &place, const QString &picture)
    : VisualControl(id, place, new PictureView), m_view(static_cast<PictureView *>(Widget()))
{
    m_view->Picture = picture;
    m_view->setFocusPolicy(Qt::StrongFocus);
}

void PictureBox::SetBordered(bool bordered)
{
    m_view->Bordered = bordered;
    m_view->update();
}

void PictureBox::SaveImage(const QString &nativePath) const
{
    constexpr double PixelsForPaper = 1200; // 100 mm at 300 an inch
    const QSize size = m_view->size();
    if (size.isEmpty())
        throw RunTimeError(InvalidPicture, Key());
    const double ratio = std::max(m_view->devicePixelRatioF(),
                                  PixelsForPaper / std::max(size.width(), size.height()));
    QPixmap image(size * ratio);
    image.setDevicePixelRatio(ratio);
    image.fill(ToQColor(BackColor()));
    QPainter painter(&image);
    if (!m_view->Loaded.isNull())
        painter.drawPixmap(QRect(QPoint(), size), m_view->Loaded);
    else if (!m_view->Picture.isEmpty())
        painter.drawPixmap(0, 0, DrawnPicture(m_view->Picture, size, ratio));
    painter.end();
    QFile file(nativePath);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        throw RunTimeError(PathFileAccess, nativePath);
    if (!image.save(&file, "BMP") || !file.flush())
        throw RunTimeError(DiskFull, nativePath);
}

void PictureBox::LoadPicture(const QString &nativePath)
{
    if (nativePath.isEmpty()) {
        m_view->Picture.clear();
        m_view->Loaded = {};
    } else {
        if (!QFile::exists(nativePath))
            throw RunTimeError(FileNotFound, nativePath);
        QPixmap loaded;
        if (!loaded.load(nativePath, "BMP"))
            throw RunTimeError(InvalidPicture, nativePath);
        m_view->Loaded = loaded;
    }
    m_view->update();
}

QPixmap PictureBox::LoadedPicture() const
{
    return m_view->Loaded;
}

void PictureBox::Refresh()
{
    m_view->Back = BackColor();
    m_view->update();
}

Image::Image(const ControlId &id, const Place &place, const QString &picture)
    : PictureBox(id, place, picture)
{
    m_view->Filled = false;
    m_view->setFocusPolicy(Qt::NoFocus);
}

} // namespace platform
