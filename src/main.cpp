// The program: the table of its windows, and the start.
#include "configuration/form_configura.h"
#include "core/start.h"
#include "core/windows.h"
#include "exercises/form_es1.h"
#include "exercises/form_es2.h"
#include "exercises/form_es4.h"
#include "exercises/form_es5.h"
#include "menu/form_menu.h"
#include "platform/application.h"
#include "platform/machine_host.h"
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
    RegistraFinestra(QStringLiteral("FormConfigura"), Crea<FormConfigura>);
    RegistraFinestra(QStringLiteral("FormEs1"), Crea<FormEs1>);
    RegistraFinestra(QStringLiteral("FormEs2"), Crea<FormEs2>);
    RegistraFinestra(QStringLiteral("FormEs4"), Crea<FormEs4>);
    RegistraFinestra(QStringLiteral("FormEs5"), Crea<FormEs5>);
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
