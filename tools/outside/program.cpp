// The program with a drive of its own in the folder where it stands, for the scripts that work it
// from outside: each plays on a copy of that folder.
#include "program.h"
#include "platform/machine/machine_host.h"

#include <filesystem>

int main(int argc, char **argv)
{
    const auto here = std::filesystem::read_symlink("/proc/self/exe").parent_path();
    platform::MachineHost machine(QString::fromStdString((here / "journey-drive/").string()));
    return RunProgram(argc, argv, machine);
}
