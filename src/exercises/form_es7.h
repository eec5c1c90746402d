// "Indovina chi?": the child finds the house that fits the description.
#pragma once

#include "exercises/figure_grid.h"

class FormEs7 : public GrigliaFigure {
public:
    FormEs7();

protected:
    void FiguraCliccata(int figura) override;
    void FiguraScelta() override;
    QString VariabileFinestre() const override;
    QString NuvoleAssenti() const override;
};
