// The teacher sees which exercises the player did in this run, saves and prints them, and opens
// what was saved.
#pragma once

#include "platform/controls/form.h"
#include "platform/controls/grid.h"
#include "platform/controls/label.h"
#include "platform/controls/menu.h"
#include "results/report.h"

class FormEserciziEseguiti : public platform::Form {
public:
    FormEserciziEseguiti();

    platform::Label Label1; // the player
    platform::Label Label2; // heading with the date
    platform::Grid MSFlexGrid1;
    platform::Label Label3; // the last line of an opened report
    platform::MenuItem mnuFile;
    platform::MenuItem mnuSalva;
    platform::MenuItem mnuApri;
    platform::MenuItem mnuStampa;
    platform::MenuItem mnuEsci;

private:
    void Attiva();
    void PreparaTabella(int righe);
    void ScriviIntestazione(const QString &chiave);
    void Salva();
    void Apri();
    void LeggiFile(const QString &percorso);
    void StampaTabella();
    TitoliResoconto Titoli() const;
};
