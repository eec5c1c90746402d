// The program: the table of its windows, and the start.
#include "core/start.h"
#include "core/windows.h"
#include "exercises/form_es1.h"
#include "menu/form_menu.h"
#include "platform/application.h"
#include "platform/machine_host.h"
#include "results/form_esercizi_eseguiti.h"
#include "support/windows/form_avvio.h"

namespace {

template <typename Finestra> platform::Form *Crea()
{
    return new Finestra;
}

void RegistraFinestre()
{
    RegistraFinestra(QStringLiteral("FormAvvio"), Crea<FormAvvio>);
    RegistraFinestra(QStringLiteral("FormMenu"), Crea<FormMenu>);
    RegistraFinestra(QStringLiteral("FormEs1"), Crea<FormEs1>);
    RegistraFinestra(QStringLiteral("FormEserciziEseguiti"), Crea<FormEserciziEseguiti>);
}

} // namespace

int main(int argc, char **argv)
{
    platform::MachineHost machine(QStringLiteral(MORLENE_DRIVE_ROOT));
    platform::SetHost(&machine);
    platform::Application application(argc, argv);
    RegistraFinestre();
    return application.Run(Main);
}
