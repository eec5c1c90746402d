#include "printing/print_fields.h"

#include "platform/host.h"

using namespace platform;

CampiStampa Stampa;

void AzzeraStampa()
{
    Stampa = {};
}

void ErroreStampa(const QString &routine, const QString &testo)
{
    host().MessageBox({.Text = testo,
                       .Title = QStringLiteral(" Errore in frmStampaFPB/") + routine,
                       .Icon = BoxIcon::Critical});
}
