#include "platform/printing/deadline.h"

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>
#include <utility>

namespace platform {

namespace {

// Listing printers takes some 10 ms, sending a page some 50.
constexpr std::chrono::milliseconds Deadline(800);

// Never deleted: the thread may still stand in it when the process ends.
struct Desk {
    std::mutex Mutex;
    std::condition_variable Asked;
    std::condition_variable Answered;
    std::function<void()> Task; // empty: none waits
    bool Busy = false;
    bool Started = false;

    void Serve()
    {
        std::unique_lock lock(Mutex);
        for (;;) {
            Asked.wait(lock, [this] { return static_cast<bool>(Task); });
            auto task = std::exchange(Task, {});
            lock.unlock();
            task();
            // What the task owns goes here, not under the lock.
            task = {};
            lock.lock();
            Busy = false;
            Answered.notify_all();
        }
    }
};

Desk &TheDesk()
{
    static auto *desk = new Desk;
    return *desk;
}

} // namespace

bool RunWithDeadline(std::function<void()> task)
{
    Desk &desk = TheDesk();
    std::unique_lock lock(desk.Mutex);
    // One that hangs has had its time already: the next asker does not wait again.
    if (desk.Busy)
        return false;
    if (!desk.Started) {
        desk.Started = true;
        std::thread([&desk] { desk.Serve(); }).detach();
    }
    desk.Busy = true;
    desk.Task = std::move(task);
    desk.Asked.notify_one();
    return desk.Answered.wait_for(lock, Deadline, [&desk] { return !desk.Busy; });
}

} // namespace platform
