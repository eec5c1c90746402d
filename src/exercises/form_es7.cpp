// Eight lines describe one house of the grid, and the child finds it. With the arrow keys it is the
// game of the intruders that is played on this screen: meant.
#include "exercises/form_es7.h"

#include "core/sounds.h"
#include "language/language.h"

namespace {

constexpr DisegnoEsercizio Disegno = {
    .Nome = "FormEs7",
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

constexpr int16_t FrecceEInvio = 3; // `ModoInput`

} // namespace

FormEs7::FormEs7()
    : GrigliaFigure(Disegno,
                    QStringLiteral("Trova la morlena che possiede tutte le caratteristiche"))
{
}

// --- Answers by pointer ---

void FormEs7::FiguraCliccata(int figura)
{
    if (Command1(Prossimo).Enabled())
        return;
    if (figura != FiguraCercata)
        return RispostaErrata();
    RispostaEsatta();
    FigureEliminate = platform::Integer16(FigureEliminate + 1);
    SuonoEsatto();
    RiquadroSullaCercata();
    Shape1.SetVisible(true);
    Command1(Prossimo).SetEnabled(true);
}

// --- Answers by scanning ---

void FormEs7::FiguraScelta()
{
    if (ModoInput == FrecceEInvio)
        return EliminaIntruso();
    if (PosizioneScansione != FiguraCercata)
        return RispostaErrata();
    if (!ShockwaveFlash1(FiguraCercata).Visible())
        return;
    RispostaEsatta();
    for (platform::MovieControl &figura : ShockwaveFlash1)
        if (figura.Index() != FiguraCercata)
            figura.SetVisible(false);
    SuonoEsatto();
    FineConScansione();
}

// --- Texts of its own ---

QString FormEs7::VariabileFinestre() const
{
    return VariabileColore();
}

QString FormEs7::NuvoleAssenti() const
{
    return MLSTesto(QStringLiteral("0081"));
}
