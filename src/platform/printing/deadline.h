// Questions to a printing system that may not answer: a thread of their own asks, and the program
// waits only so long.
#pragma once

#include <functional>
#include <memory>
#include <optional>

namespace platform {

// Runs `task` in the thread that asks. False when it has not ended within the deadline, or when an
// earlier one still has not; a task that came too late goes on by itself and nobody waits for it.
bool RunWithDeadline(std::function<void()> task);

// The same with an answer. The question owns all that it needs: the asker may be gone.
template <typename Answer> std::optional<Answer> AskWithDeadline(std::function<Answer()> question)
{
    auto answer = std::make_shared<std::optional<Answer>>();
    if (!RunWithDeadline([answer, question = std::move(question)] { *answer = question(); }))
        return {};
    return std::move(*answer);
}

} // namespace platform
