// While it lives, what is said on standard output and on standard error goes nowhere. The fuzzer's
// own reports go past it.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <utility>

class Silence {
public:
    Silence() : m_output(std::exchange(stdout, Nowhere())), m_errors(std::exchange(stderr, stdout))
    {
    }
    ~Silence()
    {
        stdout = m_output;
        stderr = m_errors;
    }
    Silence(const Silence &) = delete;
    Silence &operator=(const Silence &) = delete;

private:
    static std::FILE *Nowhere()
    {
        static std::FILE *const nowhere = std::fopen("/dev/null", "w");
        if (nowhere == nullptr)
            std::abort();
        return nowhere;
    }

    std::FILE *m_output;
    std::FILE *m_errors;
};
