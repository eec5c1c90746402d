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
    // The part that the movie names takes on this figure the value that it has on the other one.
    void Ripara(platform::MovieControl &figura, Colorazione &suoi, const Colorazione &altri,
                const QString &comando);

    QString ColoreScansione; // RRGGBB
};
