// What a window does at an event. Raising the event is calling its handler, and all events are
// raised here: an error that leaves a handler is fatal on the spot, also when the statement that
// raised the event stands in a routine that skips errors.
#pragma once

#include <functional>
#include <type_traits>
#include <utility>

namespace platform {

// Runs code as an event does: an error that leaves it goes to `Host::FatalError`. For tests too.
void Guarded(const std::function<void()> &code);

template <typename Signature> class EventHandler;

template <typename... Arguments> class EventHandler<void(Arguments...)> {
public:
    EventHandler() = default;
    template <typename Code>
    requires(!std::is_same_v<Code, EventHandler>) EventHandler(Code code) : m_code(std::move(code))
    {
    }

    // Nothing happens where nobody listens.
    void operator()(Arguments... arguments) const
    {
        if (m_code)
            Guarded([&] { m_code(arguments...); });
    }
    explicit operator bool() const { return static_cast<bool>(m_code); }

private:
    std::function<void(Arguments...)> m_code;
};

// With an answer: false where nobody listens.
template <typename... Arguments> class EventHandler<bool(Arguments...)> {
public:
    EventHandler() = default;
    template <typename Code>
    requires(!std::is_same_v<Code, EventHandler>) EventHandler(Code code) : m_code(std::move(code))
    {
    }

    bool operator()(Arguments... arguments) const
    {
        bool answer = false;
        if (m_code)
            Guarded([&] { answer = m_code(arguments...); });
        return answer;
    }
    explicit operator bool() const { return static_cast<bool>(m_code); }

private:
    std::function<bool(Arguments...)> m_code;
};

} // namespace platform
