// What the exercises with two answers and a button for the next task have in common: a click or the
// scanning on one of three buttons. The answers themselves are each exercise's own.
#pragma once

#include "frame/exercise_window.h"
#include "platform/controls/label.h"

class TreBottoni : public FinestraEsercizio {
public:
    int16_t BottoneScansione = 0; // index of the button that carries the highlight

    platform::Label Label1; // the sentence
    platform::MovieControl ShockwaveFlash1;

protected:
    static constexpr int Primo = 0; // indexes of `Command1`
    static constexpr int Secondo = 1;
    static constexpr int Prossimo = 2;

    TreBottoni(const DisegnoEsercizio &disegno, const platform::Place &frase,
               const platform::Place &figura);

    virtual int IndiceGiusto() const = 0;
    virtual void ProssimoEsercizio() = 0;
    virtual void RispostaEsattaConPuntatore() = 0;
    virtual void RispostaEsattaConScansione() = 0;

    // Step of activation: timer, pointers, and the highlight on the first button.
    void PreparaScansione();
    // The highlight leaves the answers and waits for the child on the next-task button.
    void EvidenziaProssimo();

    void PassoScansione(Gesto verso) override;
    void Scegli() override;
    void PassoAutomatico() override;

private:
    void Risposta(int indice);
    void SpostaScansione(Gesto verso);
};
