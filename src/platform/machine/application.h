// The running application: the event dispatch that ends the program on an error nothing trapped.
#pragma once

#include "platform/host/event_handler.h"

#include <functional>
#include <memory>

namespace platform {

// Makes the toolkit's application object for as long as it lives. One a process.
class Application {
public:
    Application(int &argc, char **argv);
    ~Application();
    Application(const Application &) = delete;
    Application &operator=(const Application &) = delete;

    // Runs `start` and then, if a form is loaded, events until the program ends; the exit status.
    int Run(const std::function<void()> &start);

private:
    class Impl;
    std::unique_ptr<Impl> m_impl;
};

} // namespace platform
