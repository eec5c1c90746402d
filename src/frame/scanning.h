// The keys of the input modes without a mouse, and the step of a highlight.
#pragma once

#include <QString>

#include <functional>

// What a released key asks for in the present `ModoInput`.
enum class Gesto { Nessuno, Avanti, Indietro, Giu, Su, Scegli };

Gesto GestoManuale(int tasto);    // modes 1 and 3
Gesto GestoAutomatico(int tasto); // mode 2

// 1 for a gesture that leads on, right or down, -1 for one that leads back, left or up.
int Segno(Gesto gesto);

// The index that follows `da` by steps of `passo` among `quanti`, a multiple of it, going round,
// past those that are not `abilitato`. One round at most: with none enabled it is `da` again.
int PassoCircolare(int da, int quanti, int passo, const std::function<bool(int)> &abilitato);

// Interval of the automatic highlight in milliseconds: `VelocitaScansione` times 250 in 16 bits, so
// that a speed above 131 is error 6.
int IntervalloScansione();

// `ColorePulsantiSelezionati` as a movie wants it, RRGGBB.
QString TrovaColoreScansione();
