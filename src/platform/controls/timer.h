// A timer of a form. It starts disabled; an interval of 0 means no ticks.
#pragma once

#include "platform/controls/control.h"
#include "platform/host/event_handler.h"
#include "platform/host/host.h"

#include <QObject>

#include <functional>
#include <memory>

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

    // Where a tick would change nothing while the keyboard stays where it is, ticks wait until the
    // keyboard goes elsewhere: a computer that nobody touches is at rest.
    void RestWhile(std::function<bool()> nothingToDo);

    EventHandler<void()> OnTimer;

    void FormGone() override; // takes the ticks away for good

private:
    void Start();
    bool Rests() const { return m_nothingToDo && m_nothingToDo(); }

    int m_interval;
    bool m_enabled = false;
    bool m_stopped = false;
    std::unique_ptr<Ticker> m_ticker;
    std::function<bool()> m_nothingToDo;
    std::unique_ptr<QObject> m_ears; // that hear where the keyboard goes
};

} // namespace platform
