// "Uguali - 1°": the child names the parts that differ by their pictures in a row.
#pragma once

#include "exercises/differences.h"
#include "platform/controls/shape.h"

class FormEs8 : public Differenze {
public:
    FormEs8();

    platform::PictureBox Picture1; // the bar with the pictures and the buttons
    platform::ControlArray<platform::Image> Image1;
    platform::ControlArray<platform::Shape> Shape1; // frames round the pictures

protected:
    void Attiva() override;
    void ImpostaColori() override;
    void ColoraSelezionato() override;

private:
    void ApriFilemorlene();
    void Ripara(int immagine);
    void Incornicia(int immagine);
    void TogliCornici();

    QString ColoreScansione; // RRGGBB; nothing here reads it
};
