// "Insiemi": one sentence for a whole series of houses, each of which goes to the set of those for
// which it holds or to the other one.
#pragma once

#include "exercises/three_buttons.h"
#include "frame/figure_movie.h"

class FormEs5 : public TreBottoni {
public:
    FormEs5();

    // The series: its clauses, and the figure to sort.
    int16_t IndiceEsatto = 0; // 0: the sentence holds for the figure; 1: it does not
    Colorazione ColoreParte;
    int16_t PrimoOggetto = 0;   // part number of the first clause
    int16_t PrimoColore = 0;    // colour 1 to 4; for smoke and clouds 1 says that they are there
    int16_t SecondoOggetto = 0; // the second clause, from level 2 on
    int16_t SecondoColore = 0;
    int16_t NumeroSi = 0; // figures in the left set, and the next free place there
    int16_t NumeroNo = 0; // the same for the right set
    QString Frase;

    platform::ControlArray<platform::MovieControl> ShockwaveFlash2; // the sentence holds
    platform::ControlArray<platform::MovieControl> ShockwaveFlash3; // it does not

protected:
    void Attiva() override;
    void GeneraEsercizio() override;
    int IndiceGiusto() const override { return IndiceEsatto; }
    void ProssimoEsercizio() override { GeneraEsercizio(); }
    void RispostaEsattaConPuntatore() override;
    void RispostaEsattaConScansione() override;

private:
    void NascondiInsiemi();
    void ApriFilemorlene();

    void ScriviFrase();
    void ScriviFrase1();
    void ScriviFrase2();
    void ScriviFrase3();
    void ScriviFrase4();
    void EstraiPrimo();
    bool DaScartare() const;
    void ComponiFrasePositiva1();
    void ComponiFrasePositiva2();
    QString AperturaSeconda(int testoDelComignolo) const;
    void ComponiFrasePositiva3();
    void ComponiFrasePositiva4();

    void ImpostaColori();
    bool PrimaVale() const;
    bool SecondaVale() const;
    void RendiVeraLaPrima();
    void RendiVeraLaSeconda();
    void RiestraiEntrambe();
    void FiguraPerUna();
    void FiguraPerE();
    void FiguraPerO();
    void FiguraPerUnaSola();

    bool Smista();
    void ColoraSi();
    void ColoraNo();
    void Colora(platform::MovieControl &copia);

    QString FraseComposta;
};
