#include "platform/movie_control.h"

#include "platform/movies/movie_reader.h"

#include <QMouseEvent>
#include <QPainter>
#include <QWidget>

namespace platform {

class MovieView : public QWidget {
public:
    MovieControl *Owner = nullptr;

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        painter.fillRect(rect(), QColor(QLatin1Char('#') + Owner->m_bgColor));
        if (Owner->m_reader)
            Owner->m_reader->Paint(painter, rect());
        // Told when it is seen, and once for the many calls that paint a figure.
        Owner->Describe();
    }
};

namespace {

// A reward is drawn 25 times a second.
constexpr int FrameMilliseconds = 40;

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
    m_reader = OpenMovie(path);
    Note("Movie", path);
    if (m_reader && m_reader->Duration() > 0)
        Play();
    m_view->update();
}

void MovieControl::Play()
{
    m_started = host().Milliseconds();
    m_ticker = host().StartTicker(FrameMilliseconds, [this] {
        const auto elapsed = static_cast<int>(host().Milliseconds() - m_started);
        if (m_reader->Advance(elapsed))
            m_view->update();
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
    m_reader->GotoFrame(frame);
    Note("GotoFrame", QString::number(frame));
    SetMousePointer(frame == 1 || frame == 2 ? platform::MousePointer::Custom
                                             : platform::MousePointer::Default);
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

bool MovieControl::Event(QEvent *event)
{
    if (event->type() == QEvent::MouseButtonPress && m_reader && OnFSCommand && Enabled()) {
        const auto *mouse = static_cast<QMouseEvent *>(event);
        if (mouse->button() == Qt::LeftButton) {
            const bool parts = m_frame == 2 || m_frame == 3;
            const int part = parts ? m_reader->Hit(mouse->position(), m_view->rect()) : 0;
            if (!parts || part != 0)
                OnFSCommand(QString::number(part), QString());
        }
    }
    return VisualControl::Event(event);
}

} // namespace platform
