// The program on this machine.
#include "platform/machine/machine_host.h"
#include "program.h"

int main(int argc, char **argv)
{
    platform::MachineHost machine(QStringLiteral(MORLENE_DRIVE_ROOT));
    return RunProgram(argc, argv, machine);
}
