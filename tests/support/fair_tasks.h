// How many tasks a level are judged for fairness, and how far a coin thrown that often may stray.
#pragma once

#include <cmath>

// Fewer under the sanitizers, which look for other faults.
#ifdef MORLENE_SANITIZED
constexpr int FairTasks = 400;
#else
constexpr int FairTasks = 10000;
#endif

// Five deviations of so many throws of a fair coin.
inline int FiveDeviations(int throws)
{
    return static_cast<int>(std::ceil(2.5 * std::sqrt(throws)));
}
