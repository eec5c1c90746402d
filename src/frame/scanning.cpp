#include "frame/scanning.h"

#include "core/profile.h"
#include "frame/exercise_window.h"

using namespace platform;

Gesto GestoManuale(int tasto)
{
    if (ModoInput == 1)
        return tasto == KeySpace   ? Gesto::Avanti
               : tasto == KeyEnter ? Gesto::Scegli
                                   : Gesto::Nessuno;
    if (ModoInput != 3)
        return Gesto::Nessuno;
    switch (tasto) {
    case KeyRight:
        return Gesto::Avanti;
    case KeyLeft:
        return Gesto::Indietro;
    case KeyDown:
        return Gesto::Giu;
    case KeyUp:
        return Gesto::Su;
    case KeyEnter:
        return Gesto::Scegli;
    default:
        return Gesto::Nessuno;
    }
}

Gesto GestoAutomatico(int tasto)
{
    return ModoInput == 2 && tasto == KeySpace ? Gesto::Scegli : Gesto::Nessuno;
}

int Segno(Gesto gesto)
{
    return gesto == Gesto::Indietro || gesto == Gesto::Su ? -1 : 1;
}

int PassoCircolare(int da, int quanti, int passo, const std::function<bool(int)> &abilitato)
{
    int indice = da;
    do
        indice = (indice + passo + quanti) % quanti;
    while (!abilitato(indice) && indice != da);
    return indice;
}

int IntervalloScansione()
{
    return Integer16(int64_t{VelocitaScansione} * 250);
}

QString TrovaColoreScansione()
{
    // The number is &H00BBGGRR: the outer pairs change places. Only the first six digits are
    // looked at, so that a system colour, which has eight, gives another colour: meant.
    const QString cifre = QString::number(ToColor(ColorePulsantiSelezionati), 16)
                              .toUpper()
                              .rightJustified(6, QLatin1Char('0'));
    return cifre.mid(4, 2) + cifre.mid(2, 2) + cifre.mid(0, 2);
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
