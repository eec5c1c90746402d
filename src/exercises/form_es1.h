// "Vero o falso": one house, a sentence about it, and two buttons that say whether it is true.
#pragma once

#include "frame/exercise_window.h"
#include "frame/figure_movie.h"
#include "platform/label.h"

class FormEs1 : public FinestraEsercizio {
public:
    FormEs1();

    // The task that is shown.
    int16_t IndiceEsatto = 0; // index in `Command1` of the right answer: 0 true, 1 false
    Colorazione ColoreParte{};
    QString Frase;

    platform::Label Label1;
    platform::MovieControl ShockwaveFlash1;

protected:
    void Attiva() override;
    void GeneraEsercizio() override;
    void PassoScansione(int verso) override;
    void Scegli() override;

private:
    void ApriFilemorlene();
    void ImpostaColori();
    void ProssimoEsercizio();

    void Risposta(int indice);
    void RispostaEsattaConPuntatore();
    void RispostaErrata();

    void ScriviFrase();
    void ScriviFrase1();
    void ScriviFrase2();
    void ScriviFrase3();
    void ScriviFrase4();
    void ScriviFrase5();
    void ScriviFrase6();
    void ScriviFraseDoppia(const std::function<void()> &prima,
                           const std::function<void()> &seconda);
    void ComponiFrasePositiva();
    void ComponiFraseNegativa();
    void ComponiFrasePresenza();
    int16_t AltroColore() const;

    int16_t ContaPremio = 0; // right answers since the last reward; outlives levels and activation
    bool FiguraDaRicaricare = false;
    int16_t GiroColori = 0; // 0 to 3: four tasks share one colouring
    int16_t QualeParte = 0; // 1 to 8: what the sentence speaks of
    QString FraseComposta;
};
