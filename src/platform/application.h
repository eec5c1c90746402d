// The running application: the event dispatch that ends the program on an error nothing trapped.
#pragma once

#include <memory>

namespace platform {

class Application {
public:
    Application(int &argc, char **argv);
    ~Application();
    Application(const Application &) = delete;
    Application &operator=(const Application &) = delete;

    // Runs until the program ends; the exit status.
    int Run();

private:
    class Impl;
    std::unique_ptr<Impl> m_impl;
};

} // namespace platform
