// Eight lines describe one house of the grid. The child removes all the others, one by one; to
// touch the one described is the mistake, also when it is the last one left.
#include "exercises/form_es6.h"

#include "core/sounds.h"
#include "language/language.h"

namespace {

constexpr DisegnoEsercizio Disegno = {
    .Nome = "FormEs6",
    .Larghezza = 8355,
    .Altezza = 6390,
    .Sfondo = 0x00FFFFC0,
    .Livelli = 5,
    .SogliaSalita = 18,
    .NomeFiguraDaColorare = "mnuPag",
    .NomeMerlino = "PicMerlino",
    .Merlino = {5400, 4200, 1455, 1215},
    .TastieraSinistra = 12720,
    .TastieraManualeAlto = 2040,
    .TastieraAutomaticaAlto = 2880,
};

} // namespace

FormEs6::FormEs6()
    : GrigliaFigure(
          Disegno, QStringLiteral("Elimina le morlene che non possiedono tutte le caratteristiche"))
{
}

// --- Answers by pointer ---

void FormEs6::FiguraCliccata(int figura)
{
    // Whether the task is over is not asked: meant.
    if (figura == FiguraCercata)
        return RispostaErrata();
    RispostaEsatta();
    ShockwaveFlash1(figura).SetVisible(false);
    FigureEliminate = platform::Integer16(FigureEliminate + 1);
    SuonoEsatto();
    if (FigureEliminate == NumeroFigure - 1) {
        RiquadroSullaCercata();
        Shape1.SetVisible(true);
        Command1(Prossimo).SetEnabled(true);
    }
}

// --- Answers by scanning ---

void FormEs6::FiguraScelta()
{
    EliminaIntruso();
}

// --- Texts of its own ---

// In this window alone the variable's name comes from the language file: meant.
QString FormEs6::VariabileFinestre() const
{
    return MLSTesto(QStringLiteral("0103"));
}

QString FormEs6::NuvoleAssenti() const
{
    return MLSTesto(QStringLiteral("0104"));
}
