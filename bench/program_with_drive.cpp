// The program with the drive that the measurement prepares.
#include "platform/machine/machine_host.h"
#include "program.h"

int main(int argc, char **argv)
{
    platform::MachineHost machine(QStringLiteral(MORLENE_BENCH_DRIVE));
    return RunProgram(argc, argv, machine);
}
