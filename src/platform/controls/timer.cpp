#include "platform/controls/timer.h"

#include "platform/controls/form.h"

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

void Timer::FormGone()
{
    m_stopped = true;
    m_ticker.reset();
}

void Timer::Start()
{
    m_ticker.reset();
    if (!m_enabled || m_stopped || m_interval == 0)
        return;
    m_ticker = host().StartTicker(m_interval, [this] { OnTimer(); });
}

} // namespace platform
