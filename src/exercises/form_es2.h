// "Uguale - diverso": two houses, a sentence begun, and two buttons that end it: the part is the
// same on both, or it is not.
#pragma once

#include "exercises/sentence_exercise.h"

class FormEs2 : public EsercizioConFrase {
public:
    FormEs2();

    // The two figures, and for each part whether it differs and whether it has been asked.
    Colorazione Colore1;
    Colorazione Colore2;
    Vettore<int16_t, 8> Diverso; // index in `Command1` of the right answer: 0 the same, 1 not
    Vettore<int16_t, 8> Usata;   // 1 since its sentence has been shown

    platform::MovieControl ShockwaveFlash2;

protected:
    int IndiceGiusto() const override { return Diverso(QualeParte); }
    void ApriFilemorlene() override;
    void ImpostaColori() override;
    void ScriviFrase() override;
    void MostraFrase() override;
    void DopoIlCambio() override;
    void RispostaEsattaConPuntatore() override;

private:
    void PreparaParte(int parte, int valori, int primo);
    void ScegliParte();
    void IntitolaRisposte();
};
