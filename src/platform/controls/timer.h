// A timer of a form. It starts disabled; an interval of 0 means no ticks.
#pragma once

#include "platform/controls/control.h"
#include "platform/host/event_handler.h"
#include "platform/host/host.h"

namespace platform {

class Timer : public Control {
public:
    Timer(const ControlId &id, int milliseconds);

    bool Enabled() const override { return m_enabled; }
    // Enabling an enabled timer changes nothing. A timer of an unloaded form never ticks.
    void SetEnabled(bool enabled) override;
    int Interval() const { return m_interval; }
    // Starts the interval anew, also with the value it has.
    void SetInterval(int milliseconds);

    EventHandler<void()> OnTimer;

    void FormGone() override; // takes the ticks away for good

private:
    void Start();

    int m_interval;
    bool m_enabled = false;
    bool m_stopped = false;
    std::unique_ptr<Ticker> m_ticker;
};

} // namespace platform
