#include "platform/controls/picture.h"

#include "platform/movies/drawn_picture.h"

#include <QFile>
#include <QFocusEvent>
#include <QPainter>
#include <QPixmap>
#include <QWidget>

#include <algorithm>
#include <cmath>
#include <functional>

namespace platform {

class PictureView : public QWidget {
public:
    PictureView() { DrawnAs(*this, QAccessible::Graphic); }

    QString Picture;
    QPixmap Loaded; // stands for the drawing when there is one
    bool Filled = true;
    bool Bordered = false;
    Color Back = SystemButtonFace;
    std::function<bool()> TakesKeys = [] { return false; };

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
        if (m_byKeys && hasFocus() && TakesKeys()) {
            // Seen on any picture and on any colour.
            painter.setPen(QPen(Qt::white, 5));
            painter.drawRect(rect().adjusted(2, 2, -3, -3));
            painter.setPen(QPen(ToQColor(Ink), 2));
            painter.drawRect(rect().adjusted(2, 2, -3, -3));
        }
    }
    void focusInEvent(QFocusEvent *event) override
    {
        // Coming back from a box changes nothing.
        if (event->reason() != Qt::ActiveWindowFocusReason &&
            event->reason() != Qt::PopupFocusReason)
            m_byKeys =
                event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason;
        QWidget::focusInEvent(event);
        update();
    }
    void focusOutEvent(QFocusEvent *event) override
    {
        QWidget::focusOutEvent(event);
        update();
    }

private:
    bool m_byKeys = false; // how the keyboard came here
};

PictureBox::PictureBox(const ControlId &id, const Place &place, const QString &picture)
    : VisualControl(id, place, new PictureView), m_view(static_cast<PictureView *>(Widget()))
{
    m_view->Picture = picture;
    m_view->setFocusPolicy(Qt::StrongFocus);
    m_view->TakesKeys = [this] { return TakesClicks() && !OnKeyDown && !OnKeyUp; };
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

bool PictureBox::TakeKey(int code)
{
    if (!TakesClicks())
        return false;
    if (code == KeySpace || code == KeyEnter) {
        Click();
        return true;
    }
    PictureBox *next = Neighbour(code);
    if (next == nullptr)
        return false;
    const auto policy = m_view->focusPolicy();
    if (next->m_view->focusPolicy() == Qt::NoFocus) {
        next->m_view->setFocusPolicy(policy);
        QWidget::setTabOrder(m_view, next->m_view);
        next->m_view->setFocus(Qt::TabFocusReason);
        m_view->setFocusPolicy(Qt::NoFocus);
    } else {
        next->m_view->setFocus(Qt::TabFocusReason);
    }
    return true;
}

// The nearest one that way; one straight ahead is nearer than one aside.
PictureBox *PictureBox::Neighbour(int arrow) const
{
    if (arrow < KeyLeft || arrow > KeyDown)
        return nullptr;
    const bool across = arrow == KeyLeft || arrow == KeyRight;
    const int sign = arrow == KeyRight || arrow == KeyDown ? 1 : -1;
    PictureBox *nearest = nullptr;
    double least = 0;
    for (Control *control : Parent().Controls()) {
        auto *other = dynamic_cast<PictureBox *>(control);
        if (other == nullptr || other == this || other->Name() != Name() ||
            !other->m_view->isVisible() || !other->Enabled())
            continue;
        double ahead = sign * (other->Left() - Left());
        double aside = std::abs(other->Top() - Top());
        if (!across) {
            ahead = sign * (other->Top() - Top());
            aside = std::abs(other->Left() - Left());
        }
        const double far = ahead + 4 * aside;
        if (ahead <= aside || (nearest != nullptr && far >= least))
            continue;
        nearest = other;
        least = far;
    }
    return nearest;
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
