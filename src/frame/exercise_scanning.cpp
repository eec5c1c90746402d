// An exercise window without a mouse: the timer, the two keyboard targets, and the light on a
// button.
#include "frame/exercise_window.h"

using namespace platform;

void FinestraEsercizio::CollegaScansione()
{
    Timer1.OnTimer = [this] { Tick(); };
    Timer1.RestWhile([this] {
        return (ModoInput == 1 || ModoInput == 3) && PictureScansioneManuale.HasFocus();
    });
    PictureScansioneManuale.OnKeyUp = [this](int tasto, int) { TastoManuale(tasto); };
    PictureScansioneAutomatica.OnKeyDown = [this](int tasto, int) {
        // A held switch freezes the highlight.
        if (ModoInput == 2 && tasto == KeySpace)
            Timer1.SetEnabled(false);
    };
    PictureScansioneAutomatica.OnKeyUp = [this](int tasto, int) { TastoAutomatico(tasto); };
    PictureScansioneAutomatica.OnLostFocus = [this] {
        // The release of a held switch goes to who has taken the keyboard: scanning goes on.
        if (ModoInput == 2)
            Timer1.SetEnabled(true);
    };
}

bool FinestraEsercizio::AvviaScansione()
{
    Timer1.SetEnabled(ModoInput != 0);
    if (ModoInput == 2)
        Timer1.SetInterval(IntervalloScansione());
    return ModoInput != 0;
}

void FinestraEsercizio::PrendiFuocoAutomatico()
{
    Skipping([&] { PictureScansioneAutomatica.SetFocus(); });
}

void FinestraEsercizio::Evidenzia(int indice, bool acceso)
{
    Command1(indice).SetBackColor(ToColor(acceso ? ColorePulsantiSelezionati : ColoreBottoni));
}

void FinestraEsercizio::Tick()
{
    // The focus cannot be taken while a menu, a box or another program has it: the next tick tries
    // again, and the highlight goes on.
    if (ModoInput == 1 || ModoInput == 3)
        Skipping([&] { PictureScansioneManuale.SetFocus(); });
    if (ModoInput == 2)
        Skipping([&] { PassoAutomatico(); });
}

void FinestraEsercizio::TastoManuale(int tasto)
{
    const Gesto gesto = GestoManuale(tasto);
    if (gesto == Gesto::Scegli)
        Scegli();
    else if (gesto != Gesto::Nessuno)
        PassoScansione(gesto);
}

void FinestraEsercizio::TastoAutomatico(int tasto)
{
    if (GestoAutomatico(tasto) != Gesto::Scegli)
        return;
    // The next tick comes one full interval after the release.
    Timer1.SetEnabled(true);
    Scegli();
}
