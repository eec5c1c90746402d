// Levels: chosen by hand in the menu or following the score. Each change writes a row of the log
// with the level that is left and its score.
#include "frame/exercise_window.h"

#include "core/profile.h"

using namespace platform;

namespace {

// As many errors as take the level down; the same in all exercises.
constexpr int SogliaDiscesa = 5;

} // namespace

void FinestraEsercizio::ScriviRiga()
{
    // Past the last row of the log this is error 9, and nothing traps it: meant.
    EserciziEseguiti(NumeroEserciziEseguiti, 1) = QString::number(Livello);
    EserciziEseguiti(NumeroEserciziEseguiti, 2) = QString::number(Esatti);
    EserciziEseguiti(NumeroEserciziEseguiti, 3) = QString::number(Errati);
    NumeroEserciziEseguiti = Integer16(NumeroEserciziEseguiti + 1);
}

void FinestraEsercizio::ChiudiLivello()
{
    ScriviRiga();
    Esatti = 0;
    Errati = 0;
    ScriviPannelloEsatti();
    ScriviPannelloErrati();
}

void FinestraEsercizio::CambiaLivello(const std::function<void()> &dopoIlCambio)
{
    // Both tests always run: at level 1 a fall changes nothing, and the level may still rise.
    if (Errati >= SogliaDiscesa)
        UnLivelloInMeno(dopoIlCambio);
    if (Esatti - Errati >= m_disegno.SogliaSalita)
        UnLivelloInPiu(dopoIlCambio);
    ScriviPannelloLivello();
}

void FinestraEsercizio::UnLivelloInMeno(const std::function<void()> &dopoIlCambio)
{
    if (Livello == 1)
        return;
    ChiudiLivello();
    --Livello;
    dopoIlCambio();
}

void FinestraEsercizio::UnLivelloInPiu(const std::function<void()> &dopoIlCambio)
{
    if (Livello == m_disegno.Livelli)
        return;
    ChiudiLivello();
    ++Livello;
    dopoIlCambio();
}

void FinestraEsercizio::ScegliLivello(int indice)
{
    // Also for the level that is ticked already: meant.
    ChiudiLivello();
    Livello = Integer16(indice);
    for (MenuItem &voce : mnuLiv)
        voce.SetChecked(false);
    mnuLiv(indice).SetChecked(true);
    GeneraEsercizio();
    ScriviPannelloLivello();
}
