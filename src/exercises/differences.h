// What "Uguali - 1°" and "Uguali - 2°" share: two houses that are equal but for as many parts as
// the level's number, and a part that is repaired takes the value it has on the other house.
#pragma once

#include "frame/exercise_window.h"
#include "frame/figure_movie.h"
#include "platform/controls/label.h"

struct DisegnoDifferenze {
    platform::Place Figura1;
    platform::Place Figura2;
    const char *NomePannello; // the panel with the instruction
    platform::Place Pannello;
    int PrimaPosizione; // of the highlight; eight positions, one a part, and then the button
};

class Differenze : public FinestraEsercizio {
public:
    Colorazione ColoriFigura1;
    Colorazione ColoriFigura2;
    // 1 for a part in which the task was made to differ. A movie may name 9, which no part has and
    // which so never differs; a number beyond it is error 9.
    Vettore<int16_t, 9> ParteDiversa;
    int16_t DifferenzeTrovate = 0;  // right answers in this task
    int16_t PosizioneScansione = 0; // a part, or the next-task button behind the last one

    platform::MovieControl ShockwaveFlash1;
    platform::MovieControl ShockwaveFlash2;
    platform::PictureBox Pannello;
    platform::Label Label1;

protected:
    static constexpr int Prossimo = 0; // indexes of `Command1`
    static constexpr int Aiuto = 1;

    Differenze(const DisegnoEsercizio &disegno, const DisegnoDifferenze &differenze);

    virtual void ImpostaColori() = 0;
    // Shows where the highlight stands; never asked for the next-task button.
    virtual void ColoraSelezionato() = 0;

    // Steps of a task, each with its draws.
    void EstraiFigura1();
    void CopiaFigura1();
    void CreaDifferenze(int quanteParti);
    void ColoraPrimomorlena();
    void ColoraSecondomorlena();

    // By pointer: whether an answer is looked at. A part once repaired goes on being right: meant.
    bool AspettaRisposta() const;
    // Counts a difference that was found, by pointer or by scanning, and ends the task with the
    // last one.
    void DifferenzaTrovata();

    // Design of the two buttons, once they are there.
    void VestiDisegno();
    void VestiIstruzioni(const QString &testo);
    int Parte() const; // the part under the highlight

    void GeneraEsercizio() override;
    void PassoScansione(Gesto verso) override;
    void Scegli() override;
    void PassoAutomatico() override;

private:
    bool InAttesa() const;
    void ConcludiEsercizio();

    int m_primaPosizione;
};
