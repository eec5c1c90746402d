// "Vero o falso": one house, a sentence about it, and two buttons that say whether it is true.
#pragma once

#include "exercises/sentence_exercise.h"

#include <functional>

class FormEs1 : public EsercizioConFrase {
public:
    FormEs1();

    // The task that is shown.
    int16_t IndiceEsatto = 0; // index in `Command1` of the right answer: 0 true, 1 false
    Colorazione ColoreParte;

protected:
    int IndiceGiusto() const override { return IndiceEsatto; }
    void ApriFilemorlene() override;
    void ImpostaColori() override;
    void ScriviFrase() override;
    void MostraFrase() override;
    void DopoIlCambio() override;
    void RispostaEsattaConPuntatore() override;

private:
    void ScriviFraseSemplice(const std::function<void()> &componi);
    void ScriviFraseDoppia(const std::function<void()> &prima,
                           const std::function<void()> &seconda);
    void ComponiFrase(bool nega);
    void ComponiFrasePresenza();
    int16_t AltroColore() const;

    QString FraseComposta; // the statement just composed
};
