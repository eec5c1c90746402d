// "Uguali - 2°": the child finds the parts that differ and points at them on the houses.
#pragma once

#include "exercises/differences.h"

class FormEs3 : public Differenze {
public:
    FormEs3();

protected:
    void Attiva() override;
    void ImpostaColori() override;
    void ColoraSelezionato() override;

private:
    void ApriFilemorlene();
    void Ripara(Colorazione &cambia, const Colorazione &modello, const QString &comando);

    QString ColoreScansione; // RRGGBB
};
