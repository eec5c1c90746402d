// What the first two exercises share line for line: a sentence about a figure, four tasks to a
// colouring, a reward after every tenth right answer, in the place of the first figure.
#pragma once

#include "exercises/three_buttons.h"
#include "frame/figure_movie.h"

class EsercizioConFrase : public TreBottoni {
public:
    // The task that is shown.
    int16_t QualeParte = 0; // 1 to 8: what the sentence speaks of
    QString Frase;

protected:
    using TreBottoni::TreBottoni;

    virtual void ApriFilemorlene() = 0;
    virtual void ImpostaColori() = 0;
    // Leaves the sentence in `Frase`, before the player's writing style.
    virtual void ScriviFrase() = 0;
    virtual void MostraFrase() = 0;
    // The end of a change of level, before panel 3 is written.
    virtual void DopoIlCambio() = 0;

    // Design of the three buttons, once they are there: large words, the last a picture.
    void VestiRisposte();

    void Attiva() override;
    void GeneraEsercizio() override;
    void ProssimoEsercizio() override;
    void RispostaEsattaConScansione() override;
    // Counts towards the reward and gives it when it is due.
    void PremiaSeServe();

private:
    int16_t ContaPremio = 0; // right answers since the last reward; outlives levels and activation
    bool FiguraDaRicaricare = false;
    int16_t GiroColori = 0; // 0 to 3: four tasks share one colouring
};
