#include "platform/controls/timer.h"

#include "platform/controls/form.h"

#include <QApplication>
#include <QWidget>

#include <utility>

namespace platform {

Timer::Timer(const ControlId &id, int milliseconds) : Control(id), m_interval(milliseconds) {}

void Timer::SetEnabled(bool enabled)
{
    if (m_enabled == enabled)
        return;
    m_enabled = enabled;
    Note("Enabled", enabled);
    Start();
}

void Timer::SetInterval(int milliseconds)
{
    if (milliseconds < 0)
        throw RunTimeError(InvalidPropertyValue, Key());
    m_interval = milliseconds;
    Start();
}

void Timer::RestWhile(std::function<bool()> nothingToDo)
{
    m_nothingToDo = std::move(nothingToDo);
    m_ears = std::make_unique<QObject>();
    QObject::connect(qApp, &QApplication::focusChanged, m_ears.get(), [this] {
        if (!m_ticker)
            Start();
    });
}

void Timer::FormGone()
{
    m_stopped = true;
    m_ears.reset();
    m_ticker.reset();
}

void Timer::Start()
{
    m_ticker.reset();
    if (!m_enabled || m_stopped || m_interval == 0 || Rests())
        return;
    m_ticker = host().StartTicker(m_interval, [this] {
        if (Rests())
            m_ticker.reset();
        else
            OnTimer();
    });
}

} // namespace platform
