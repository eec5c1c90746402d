// The program with a drive of its own, for the scripts that work it from outside: in the folder
// where it stands, since each plays on a copy of that. On Windows a drive is the system's, and the
// windows are told to the script here, since no bus leads out of there.
#include "program.h"
#include "platform/machine/machine_host.h"

#ifdef Q_OS_WIN
#include "told_windows.h"
#else
#include <filesystem>
#endif

int main(int argc, char **argv)
{
#ifdef Q_OS_WIN
    const QString drive = QStringLiteral("C:/");
    TellWindows();
#else
    const auto here = std::filesystem::read_symlink("/proc/self/exe").parent_path();
    const QString drive = QString::fromStdString((here / "journey-drive/").string());
#endif
    platform::MachineHost machine(drive);
    return RunProgram(argc, argv, machine);
}
