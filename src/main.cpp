// The program: the table of its windows, and the start.
#include "configuration/form_configura.h"
#include "core/start.h"
#include "core/windows.h"
#include "exercises/form_es1.h"
#include "exercises/form_es2.h"
#include "exercises/form_es3.h"
#include "exercises/form_es4.h"
#include "exercises/form_es5.h"
#include "exercises/form_es6.h"
#include "exercises/form_es7.h"
#include "exercises/form_es8.h"
#include "menu/form_menu.h"
#include "platform/application.h"
#include "platform/machine_host.h"
#include "support/windows/form_avvio.h"
#include "support/windows/form_info.h"

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
    RegistraFinestra(QStringLiteral("FormInfo"), Crea<FormInfo>);
    RegistraFinestra(QStringLiteral("FormEs1"), Crea<FormEs1>);
    RegistraFinestra(QStringLiteral("FormEs2"), Crea<FormEs2>);
    RegistraFinestra(QStringLiteral("FormEs3"), Crea<FormEs3>);
    RegistraFinestra(QStringLiteral("FormEs4"), Crea<FormEs4>);
    RegistraFinestra(QStringLiteral("FormEs5"), Crea<FormEs5>);
    RegistraFinestra(QStringLiteral("FormEs6"), Crea<FormEs6>);
    RegistraFinestra(QStringLiteral("FormEs7"), Crea<FormEs7>);
    RegistraFinestra(QStringLiteral("FormEs8"), Crea<FormEs8>);
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
