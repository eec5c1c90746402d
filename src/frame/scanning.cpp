#include "frame/scanning.h"

#include "core/profile.h"
#include "frame/exercise_window.h"

using namespace platform;

Gesto GestoManuale(int tasto)
{
    if (ModoInput == 1) {
        if (tasto == KeySpace)
            return Gesto::Avanti;
        if (tasto == KeyEnter)
            return Gesto::Scegli;
    }
    if (ModoInput == 3) {
        if (tasto == KeyRight || tasto == KeyDown)
            return Gesto::Avanti;
        if (tasto == KeyLeft || tasto == KeyUp)
            return Gesto::Indietro;
        if (tasto == KeyEnter)
            return Gesto::Scegli;
    }
    return Gesto::Nessuno;
}

Gesto GestoAutomatico(int tasto)
{
    return ModoInput == 2 && tasto == KeySpace ? Gesto::Scegli : Gesto::Nessuno;
}

int PassoCircolare(int da, int quanti, int verso, const std::function<bool(int)> &abilitato)
{
    int indice = da;
    do
        indice = (indice + verso + quanti) % quanti;
    while (!abilitato(indice) && indice != da);
    return indice;
}

int IntervalloScansione()
{
    return Integer16(int64_t{VelocitaScansione} * 250);
}

void FinestraEsercizio::PreparaScansione()
{
    if (ModoInput == 0) {
        Timer1.SetEnabled(false);
        return;
    }
    for (Button &pulsante : Command1)
        pulsante.SetMousePointer(platform::MousePointer::Default);
    Timer1.SetEnabled(true);
    BottoneScansione = 0;
    Evidenzia(0, true);
    if (ModoInput == 2)
        Timer1.SetInterval(IntervalloScansione());
}

void FinestraEsercizio::Evidenzia(int indice, bool acceso)
{
    Command1(indice).SetBackColor(ToColor(acceso ? ColorePulsantiSelezionati : ColoreBottoni));
}

void FinestraEsercizio::SpostaEvidenza(int verso)
{
    Evidenzia(BottoneScansione, false);
    BottoneScansione =
        Integer16(PassoCircolare(BottoneScansione, Command1.Count(), verso,
                                 [this](int indice) { return Command1(indice).Enabled(); }));
    Evidenzia(BottoneScansione, true);
}

void FinestraEsercizio::Tick()
{
    // The focus cannot be taken while a menu, a box or another program has it: the next tick tries
    // again, and the highlight goes on.
    if (ModoInput == 1 || ModoInput == 3)
        Skipping([&] { PictureScansioneManuale.SetFocus(); });
    if (ModoInput == 2) {
        Skipping([&] { PictureScansioneAutomatica.SetFocus(); });
        Skipping([&] { PassoScansione(1); });
    }
}

void FinestraEsercizio::TastoManuale(int tasto)
{
    switch (GestoManuale(tasto)) {
    case Gesto::Avanti:
        PassoScansione(1);
        break;
    case Gesto::Indietro:
        PassoScansione(-1);
        break;
    case Gesto::Scegli:
        Scegli();
        break;
    case Gesto::Nessuno:
        break;
    }
}

void FinestraEsercizio::TastoAutomatico(int tasto)
{
    if (GestoAutomatico(tasto) != Gesto::Scegli)
        return;
    // The next tick comes one full interval after the release.
    Timer1.SetEnabled(true);
    Scegli();
}
