// "Trova gli intrusi": the child removes the houses that do not fit the description.
#pragma once

#include "exercises/figure_grid.h"

class FormEs6 : public GrigliaFigure {
public:
    FormEs6();

protected:
    void FiguraCliccata(int figura) override;
    void FiguraScelta() override;
    QString VariabileFinestre() const override;
    QString NuvoleAssenti() const override;
};
