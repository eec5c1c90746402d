// How many tasks a level are judged for fairness, and how far a coin thrown that often may stray.
#pragma once

#include <QtGlobal>

#include <cmath>

// 10000 before a push, by the environment that the test script sets; fewer while one works, and
// under the sanitizers, which look for other faults.
inline int HowManyFairTasks()
{
#ifdef MORLENE_SANITIZED
    return 400;
#else
    const int told = qEnvironmentVariableIntValue("FAIR_TASKS");
    return told > 0 ? told : 2000;
#endif
}
inline const int FairTasks = HowManyFairTasks();

// Five deviations of so many throws of a fair coin.
inline int FiveDeviations(int throws)
{
    return static_cast<int>(std::ceil(2.5 * std::sqrt(throws)));
}
