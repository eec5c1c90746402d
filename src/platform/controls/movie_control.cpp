#include "platform/controls/movie_control.h"

#include "platform/movies/movie_reader.h"

#include <QCursor>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QWidget>

namespace platform {

class MovieView : public QWidget {
public:
    MovieView() { DrawnAs(*this, QAccessible::Graphic); }

    MovieControl *Owner = nullptr;

protected:
    void paintEvent(QPaintEvent *event) override
    {
        QPainter painter(this);
        painter.setClipRect(event->rect());
        if (!Owner->m_reader || !Owner->m_reader->Covers(event->rect(), rect()))
            painter.fillRect(rect(), QColor(QLatin1Char('#') + Owner->m_bgColor));
        if (Owner->m_reader)
            Owner->m_reader->Paint(painter, rect());
        // Told when it is seen, and once for the many calls that paint a figure.
        Owner->Describe();
        Owner->FollowPointer();
    }
};

namespace {

// A reward is drawn 25 times a second; 20 times where each frame is more than two million pixels,
// which then cost what smaller ones do.
int FrameMilliseconds(const QSize &size)
{
    constexpr int ManyPixels = 2'000'000;
    return size.width() * size.height() > ManyPixels ? 50 : 40;
}

} // namespace

MovieControl::MovieControl(const ControlId &id, const Place &place)
    : VisualControl(id, place, new MovieView), m_view(static_cast<MovieView *>(Widget()))
{
    m_view->Owner = this;
    m_view->setAttribute(Qt::WA_OpaquePaintEvent);
}

MovieControl::~MovieControl() = default;

void MovieControl::SetMovie(const QString &path)
{
    m_ticker.reset();
    m_path = path;
    m_frame = 0;
    ShowPointer(platform::MousePointer::Default);
    m_reader = OpenMovie(path);
    Note("Movie", path);
    if (m_reader && m_reader->Duration() > 0)
        Play();
    m_view->update();
}

void MovieControl::Play()
{
    m_started = host().Milliseconds();
    m_ticker = host().StartTicker(FrameMilliseconds(m_view->size()), [this] {
        const auto elapsed = static_cast<int>(host().Milliseconds() - m_started);
        if (m_reader->Advance(elapsed))
            m_view->update(m_reader->Changed(m_view->rect()));
        // An ended movie costs nothing.
        if (elapsed >= m_reader->Duration())
            m_ticker.reset();
    });
}

void MovieControl::GotoFrame(int frame)
{
    if (!m_reader)
        return;
    m_frame = frame;
    Note("GotoFrame", QString::number(frame));
    ShowPointer(frame == 1 ? platform::MousePointer::Custom : platform::MousePointer::Default);
    FollowPointer();
}

void MovieControl::SetBGColor(const QString &color)
{
    m_bgColor = color;
    Note("BGColor", color);
    m_view->update();
}

void MovieControl::SetVariable(const QString &name, const QString &value)
{
    if (!m_reader)
        return;
    m_reader->SetVariable(name, value);
    Note("SetVariable", name + QLatin1Char(' ') + value);
    m_view->update();
}

void MovieControl::TSetProperty(const QString &target, int property, const QString &value)
{
    if (!m_reader)
        return;
    m_reader->SetProperty(target, property, value);
    Note("TSetProperty", QStringLiteral("%1 %2 %3").arg(target).arg(property).arg(value));
    m_view->update();
}

QString MovieControl::Shown() const
{
    return m_reader ? m_reader->Description() : QString();
}

void MovieControl::Describe()
{
    const QString shown = Shown();
    const QString told = shown.isEmpty() ? Key() : Key() + QStringLiteral(": ") + shown;
    if (m_view->accessibleDescription() != told)
        m_view->setAccessibleDescription(told);
}

int MovieControl::PartAt(const QPointF &place) const
{
    return m_reader->Hit(place, m_view->rect());
}

void MovieControl::ShowPointer(platform::MousePointer pointer)
{
    if (pointer != MousePointer())
        SetMousePointer(pointer);
}

void MovieControl::FollowPointer()
{
    if (m_frame != 2 || !m_view->underMouse())
        return;
    const QPoint place = m_view->mapFromGlobal(QCursor::pos());
    ShowPointer(PartAt(place) != 0 ? platform::MousePointer::Custom
                                   : platform::MousePointer::Default);
}

void MovieControl::Pressed(const QMouseEvent &mouse)
{
    if (!m_reader || !Enabled() || mouse.button() != Qt::LeftButton)
        return;
    const bool parts = m_frame == 2 || m_frame == 3;
    const int part = parts ? PartAt(mouse.position()) : 0;
    if (!parts || part != 0)
        OnFSCommand(QString::number(part), QString());
}

bool MovieControl::Event(QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick: // a quick second press is a press like the first
        Pressed(*static_cast<QMouseEvent *>(event));
        break;
    case QEvent::MouseMove:
        FollowPointer();
        break;
    default:
        break;
    }
    return VisualControl::Event(event);
}

} // namespace platform
