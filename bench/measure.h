// What the benchmark programs share: the clock, the wait for the last pixel, and a person who
// answers every box at once.
#pragma once

#include "core/start.h"
#include "core/windows.h"
#include "exercises/exercise_table.h"
#include "menu/form_menu.h"
#include "platform/machine_host.h"
#include "support/windows/form_avvio.h"

#include <QCoreApplication>
#include <QGuiApplication>

#include <algorithm>
#include <chrono>
#include <functional>
#include <vector>

inline double Now() // milliseconds
{
    return std::chrono::duration<double, std::milli>(
               std::chrono::steady_clock::now().time_since_epoch())
        .count();
}

// Everything asked for is drawn, and the display server has it.
inline void Paint()
{
    QCoreApplication::processEvents();
    QGuiApplication::sync();
}

// From the call to the last pixel.
inline double Timed(const std::function<void()> &call)
{
    const double start = Now();
    call();
    Paint();
    return Now() - start;
}

inline double Quantile(std::vector<double> values, double part)
{
    std::sort(values.begin(), values.end());
    return values.at(static_cast<size_t>(part * static_cast<double>(values.size() - 1)));
}

template <typename Window> Window &Shown(const char *name)
{
    return dynamic_cast<Window &>(*platform::Form::Find(QString::fromLatin1(name)));
}

// The new player's first box is not part of a start that is measured.
class BenchHost : public platform::MachineHost {
public:
    using MachineHost::MachineHost;
    platform::BoxAnswer MessageBox(const platform::Box &) override
    {
        return platform::BoxAnswer::Ok;
    }
};

inline void RegistraFinestre()
{
    RegistraFinestra(QStringLiteral("FormAvvio"),
                     []() -> platform::Form * { return new FormAvvio; });
    RegistraFinestra(QStringLiteral("FormMenu"), []() -> platform::Form * { return new FormMenu; });
    RegistraEsercizi();
}
