#include "frame/scanning.h"

#include "core/profile.h"
#include "platform/base/colors.h"
#include "platform/base/errors.h"
#include "platform/controls/control.h"

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
