#include "platform/controls/shape.h"

#include "platform/controls/form_window.h"

#include <QPainter>
#include <QWidget>

#include <algorithm>

namespace platform {

namespace {

class ShapeView : public QWidget {
public:
    ShapeView() { setAttribute(Qt::WA_TransparentForMouseEvents); }
    Color Border = 0;
    Color Fill = SystemButtonFace;
    int Thickness = 1;
    bool Filled = false;

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        if (Filled)
            painter.fillRect(rect(), ToQColor(Fill));
        if (Thickness <= 0)
            return;
        QPen pen(ToQColor(Border), Thickness);
        pen.setJoinStyle(Qt::MiterJoin);
        painter.setPen(pen);
        const double half = Thickness / 2.0;
        painter.drawRect(QRectF(rect()).adjusted(half, half, -half, -half));
    }
};

class LineView : public QWidget {
public:
    explicit LineView(QWidget *parent) : QWidget(parent)
    {
        setAttribute(Qt::WA_TransparentForMouseEvents);
    }
    bool Falling = true; // from the top left to the bottom right

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        painter.setPen(QPen(ToQColor(SystemButtonText), 1));
        if (Falling)
            painter.drawLine(0, 0, width() - 1, height() - 1);
        else
            painter.drawLine(0, height() - 1, width() - 1, 0);
    }
};

} // namespace

Shape::Shape(const ControlId &id, const Place &place) : VisualControl(id, place, new ShapeView) {}

void Shape::SetBorderColor(platform::Color color)
{
    static_cast<ShapeView *>(Widget())->Border = color;
    Widget()->update();
}

void Shape::SetBorderWidth(int pixels)
{
    static_cast<ShapeView *>(Widget())->Thickness = pixels;
    Widget()->update();
}

void Shape::SetFilled(bool filled)
{
    static_cast<ShapeView *>(Widget())->Filled = filled;
    Widget()->update();
}

void Shape::Refresh()
{
    static_cast<ShapeView *>(Widget())->Fill = BackColor();
    Widget()->update();
}

Line::Line(const ControlId &id, double x1, double y1, double x2, double y2)
    : Control(id), m_x1(x1), m_y1(y1), m_x2(x2), m_y2(y2),
      m_widget(new LineView(id.Parent.Client()))
{
    PutInPlace();
    m_widget->show();
}

Line::~Line()
{
    delete m_widget;
}

void Line::SetVisible(bool visible)
{
    m_visible = visible;
    m_widget->setVisible(visible);
}

void Line::SetX1(double twips)
{
    m_x1 = twips;
    PutInPlace();
}

void Line::SetY1(double twips)
{
    m_y1 = twips;
    PutInPlace();
}

void Line::SetX2(double twips)
{
    m_x2 = twips;
    PutInPlace();
}

void Line::SetY2(double twips)
{
    m_y2 = twips;
    PutInPlace();
}

void Line::PutInPlace()
{
    const int left = ToPixels(std::min(m_x1, m_x2));
    const int top = ToPixels(std::min(m_y1, m_y2));
    m_widget->setGeometry(left, top, ToPixels(std::max(m_x1, m_x2)) - left + 1,
                          ToPixels(std::max(m_y1, m_y2)) - top + 1);
    static_cast<LineView *>(m_widget)->Falling = (m_x1 <= m_x2) == (m_y1 <= m_y2);
    m_widget->update();
}

} // namespace platform
