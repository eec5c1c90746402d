#include "printing/print_fields.h"

#include "platform/host/host.h"

#include <utility>

using namespace platform;

CampiStampa Stampa;

void AzzeraStampa()
{
    Stampa = {};
}

void RicominciaStampa()
{
    CampiStampa nuovi;
    nuovi.NomeStampante = Stampa.NomeStampante;
    nuovi.NumeroCopie = Stampa.NumeroCopie;
    nuovi.DevMode = Stampa.DevMode;
    nuovi.hStampante = Stampa.hStampante;
    Stampa = std::move(nuovi);
}

void ErroreStampa(const QString &routine, const QString &testo)
{
    host().MessageBox({.Text = testo,
                       .Title = QStringLiteral(" Errore in frmStampaFPB/") + routine,
                       .Icon = BoxIcon::Critical});
}
