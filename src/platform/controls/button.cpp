#include "platform/controls/button.h"

#include "platform/controls/shared_text.h"
#include "platform/movies/drawn_picture.h"

#include <QKeyEvent>
#include <QKeySequence>
#include <QPainter>
#include <QPainterPath>
#include <QPushButton>

#include <algorithm>
#include <cmath>
#include <memory>

namespace platform {

class ButtonView : public QPushButton {
public:
    ButtonView()
        : m_text(*this, [this](double most) {
              Font letters = m_font;
              letters.Size = std::min(letters.Size, most);
              return std::make_unique<FittedText>(m_caption, letters, TextRoom().size(),
                                                  Qt::AlignCenter | Qt::TextShowMnemonic);
          })
    {
        setAttribute(Qt::WA_Hover, false);
    }

    void Show(const Font &font, Color back, Color fore)
    {
        const bool letters = font != m_font;
        m_font = font;
        m_back = back;
        m_fore = fore;
        letters ? m_text.Changed() : update();
    }
    QString Caption() const { return m_caption; }
    // "&" stands before the letter that presses the button with Alt.
    void SetCaption(const QString &caption)
    {
        m_caption = caption;
        setShortcut(QKeySequence::mnemonic(caption));
        m_text.Changed();
    }
    void ShareSize(const ButtonView &other) { m_text.ShareSize(other.m_text); }
    const FittedText &Laid() const { return m_text.Laid(); }
    QString Picture;

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        const double line = Outline();
        const QRectF box = QRectF(rect()).adjusted(line / 2, line / 2, -line / 2, -line / 2);
        QPainterPath shape;
        shape.addRoundedRect(box, Radius(), Radius());
        const QColor face = ToQColor(m_back);
        // Also of a disabled button: the light of scanning waits on the next task while it is one.
        painter.fillPath(shape, face);
        Shade(painter, shape, box);
        painter.strokePath(shape, QPen(isEnabled() ? Ink() : Faded(Ink()), line));
        if (hasFocus())
            painter.strokePath(shape, QPen(ToQColor(0x8000000D), line));

        painter.setOpacity(isEnabled() ? 1.0 : 0.45);
        const int margin = static_cast<int>(std::lround(line * 2));
        const int down = isDown() ? 2 : 0;
        if (!Picture.isEmpty())
            DrawPicture(painter, rect().adjusted(margin, margin + down, -margin, -margin + down));
        painter.setPen(ToQColor(m_fore));
        Laid().Draw(painter, TextRoom().topLeft() + QPoint(0, down));
    }

    void resizeEvent(QResizeEvent *event) override
    {
        QPushButton::resizeEvent(event);
        m_text.Changed();
    }

    // Only a button that takes the keyboard gets here: Enter presses it as Space does.
    void keyPressEvent(QKeyEvent *event) override
    {
        if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
            click();
        else
            QPushButton::keyPressEvent(event);
    }

private:
    static QColor Ink() { return QColor(0x3A, 0x2B, 0x28); }
    static QColor Faded(const QColor &color)
    {
        const auto half = [](int part) { return (part + 2 * 0xE8) / 3; };
        return QColor(half(color.red()), half(color.green()), half(color.blue()));
    }

    double Outline() const { return std::clamp(height() / 25.0, 2.0, 6.0); }
    double Radius() const { return (std::min(height(), width()) - Outline()) * 0.24; }

    // A word never touches the outline, nor the round ends of it.
    QRect TextRoom() const
    {
        const int side = static_cast<int>(std::lround(Outline() * 1.5 + Radius() * 0.3));
        const int edge = static_cast<int>(std::lround(Outline() * 2));
        return rect().adjusted(side, edge, -side, -edge);
    }

    // One soft shade along the foot; a pressed button loses it.
    void Shade(QPainter &painter, const QPainterPath &shape, const QRectF &box) const
    {
        if (isDown())
            return;
        QPainterPath upper;
        upper.addRect(box.left(), box.top(), box.width(), box.height() * 0.86);
        painter.fillPath(shape.subtracted(upper), QColor(0, 0, 0, 28));
    }

    void DrawPicture(QPainter &painter, const QRect &room) const
    {
        const int side = std::min(room.width(), room.height());
        const QPixmap picture = DrawnPicture(Picture, QSize(side, side), devicePixelRatioF());
        painter.drawPixmap(room.center().x() - side / 2, room.center().y() - side / 2, picture);
    }

    QString m_caption;
    Font m_font;
    Color m_back = SystemButtonFace;
    Color m_fore = SystemButtonText;
    SharedText m_text;
};

Button::Button(const ControlId &id, const Place &place, const QString &caption)
    : VisualControl(id, place, new ButtonView), m_view(static_cast<ButtonView *>(Widget()))
{
    TellsItsClicks();
    m_view->SetCaption(caption);
    Button::Speak({});
    QObject::connect(m_view, &QPushButton::clicked, m_view, [this] { Click(); });
}

QString Button::Caption() const
{
    return m_view->Caption();
}

void Button::SetCaption(const QString &caption)
{
    m_view->SetCaption(caption);
    Speak(m_spoken);
    Note("Caption", caption);
}

DrawnText Button::Drawn() const
{
    return m_view->Laid().Drawn();
}

void Button::ShareSize(const Button &other)
{
    m_view->ShareSize(*other.m_view);
}

void Button::SetPicture(const QString &name)
{
    m_view->Picture = name;
    m_view->update();
}

void Button::Speak(const QString &name)
{
    m_spoken = name;
    const QString caption = m_view->Caption();
    m_view->setAccessibleName(caption.isEmpty() ? name : QString(caption).remove(QLatin1Char('&')));
}

void Button::SetTakesFocus(bool takes)
{
    m_view->setFocusPolicy(takes ? Qt::StrongFocus : Qt::NoFocus);
    if (takes)
        m_view->setFocus();
}

void Button::Refresh()
{
    m_view->Show(Font(), BackColor(), ForeColor());
}

} // namespace platform
