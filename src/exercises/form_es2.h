// "Uguale - diverso": two houses, a sentence begun, and two buttons that end it: the part is the
// same on both, or it is not.
#pragma once

#include "exercises/sentence_exercise.h"

class FormEs2 : public EsercizioConFrase {
public:
    FormEs2();

    // The two figures, and for each part what differs and what has been asked already.
    Colorazione Colore1;
    Colorazione Colore2;
    Colorazione Diverso; // index in `Command1` of the right answer: 0 the same, 1 not
    Colorazione Usata;

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
