#include "frame/quick_print.h"

#include "core/windows.h"
#include "language/language.h"
#include "platform/base/errors.h"
#include "platform/host/host.h"
#include "platform/printing/printer_object.h"
#include "printing/stampa_fpb.h"

using namespace platform;

void StampaVeloce(Form &finestra)
{
    if (Skipping([&] { PrintForm(finestra); }) != 0)
        host().MessageBox(
            {.Text = MLSTesto(QStringLiteral("0098")), .Title = {}, .Icon = BoxIcon::Critical});
}

void StampaConOpzioni(Form &finestra, int orientamento)
{
    // Place and size depend neither on the window nor on the paper.
    StampaFPB({.Oggetto = &finestra,
               .X = 10,
               .Y = 10,
               .W = 100,
               .H = 100,
               .Orientamento = orientamento,
               .Titolo = QString()});
}

void FiguraDaColorare()
{
    MostraFinestraModale(QStringLiteral("Form1"));
}
