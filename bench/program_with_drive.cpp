// The program with the drive that the measurement prepares.
//
//     bench_program [ROWS]    that many rows are in the log already
#include "core/shared_state.h"
#include "platform/machine/machine_host.h"
#include "program.h"

#include <cstdlib>

int main(int argc, char **argv)
{
    platform::MachineHost machine(QStringLiteral(MORLENE_BENCH_DRIVE));
    if (argc > 1) {
        NumeroEserciziEseguiti = static_cast<int16_t>(std::atoi(argv[1]));
        for (int row = 1; row <= NumeroEserciziEseguiti; ++row)
            for (int column = 0; column < 4; ++column)
                EserciziEseguiti(row, column) =
                    column == 0 ? QStringLiteral("Vero o falso") : QString::number(row + column);
    }
    int none = 1;
    return RunProgram(none, argv, machine);
}
