// What "Trova gli intrusi" and "Indovina chi?" share: a grid of houses and a description of one of
// them in eight lines. What a click or a choice means is each exercise's own.
#pragma once

#include "frame/exercise_window.h"
#include "frame/figure_movie.h"
#include "platform/controls/frame.h"
#include "platform/controls/label.h"
#include "platform/controls/shape.h"
#include "platform/controls/text_box.h"

#include <array>

class GrigliaFigure : public FinestraEsercizio {
public:
    // The task that is shown.
    int16_t NumeroFigure = 0;  // 2, 4, 6, 9 or 12
    int16_t FiguraCercata = 0; // index of the figure described; an equal twin is another figure
    Colorazione ColoriCercata;
    int16_t PosizioneScansione = 0; // index of the figure under the highlight
    int16_t FigureEliminate = 0;    // figures removed in this task

    platform::ControlArray<platform::MovieControl> ShockwaveFlash1;
    platform::TextBox Text1;
    platform::Label Label1;
    platform::PictureBox Picture1; // never shown, like its pictures
    platform::ControlArray<platform::Image> Image1;
    // Templates, never shown: the places of the figures on each level.
    platform::ControlArray<platform::Frame> Frame1;
    platform::ControlArray<platform::Frame> Frame2;
    platform::ControlArray<platform::Frame> Frame3;
    platform::ControlArray<platform::Frame> Frame4;
    platform::ControlArray<platform::Frame> Frame5;
    platform::Shape Shape1; // the highlight, and the mark of the end of a task

protected:
    static constexpr int Prossimo = 0; // index of `Command1`

    GrigliaFigure(const DisegnoEsercizio &disegno, const QString &istruzione);

    // A click on a figure, with a mouse only.
    virtual void FiguraCliccata(int figura) = 0;
    // The choice of the figure under the highlight while the task is not done.
    virtual void FiguraScelta() = 0;
    // The movie's variable that takes the colour of the windows.
    virtual QString VariabileFinestre() const = 0;
    virtual QString NuvoleAssenti() const = 0;

    void Attiva() override;
    void GeneraEsercizio() override;
    void PassoScansione(Gesto verso) override;
    void Scegli() override;
    void PassoAutomatico() override;

    void SistemaRiquadro();
    void RiquadroSullaCercata(); // its place only
    void FineConScansione();
    void RispostaEsatta(); // counter and panel
    // The rule of the intruders by scanning: the figure goes, unless it is the one described.
    void EliminaIntruso();

private:
    using Griglia = platform::ControlArray<platform::Frame>;

    void ImpostaLivelli();
    void ApriFilemorlene();
    void SvuotaFigure();
    void ImpostaColori();
    void Dipingi(platform::MovieControl &figura, const Colorazione &colori);
    void ScriviFrase();
    void ComponiFrasePositiva();
    bool Fatto() const;
    int PassoVerticale() const;

    int16_t QualeParte = 0; // what the clause being composed speaks of
    QString FraseComposta;
};
