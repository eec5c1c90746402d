#include "program.h"

#include "configuration/form_configura.h"
#include "core/start.h"
#include "core/windows.h"
#include "exercises/exercise_table.h"
#include "menu/form_menu.h"
#include "platform/host/host.h"
#include "platform/machine/application.h"
#include "platform/machine/command_line.h"
#include "results/form_esercizi_eseguiti.h"
#include "support/windows/form1.h"
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
    RegistraFinestra(QStringLiteral("Form1"), Crea<Form1>);
    RegistraFinestra(QStringLiteral("FormEserciziEseguiti"), Crea<FormEserciziEseguiti>);
    RegistraEsercizi();
}

} // namespace

int RunProgram(int argc, char **argv, platform::Host &host)
{
    if (const auto status = platform::AnswerCommandLine(argc, argv, MORLENE_VERSION))
        return *status;
    platform::SetHost(&host);
    platform::Application application(argc, argv);
    RegistraFinestre();
    return application.Run(Main);
}
