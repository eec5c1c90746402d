// The house figure: its eight parts by number, its file, and how a colouring is put on it.
#pragma once

#include "core/tables.h"
#include "platform/controls/movie_control.h"

#include <cstdint>

constexpr int Comignolo = 1;
constexpr int Tetto = 2;
constexpr int Pareti = 3;
constexpr int Finestre = 4;
constexpr int Porta = 5;
constexpr int Gradino = 6;
constexpr int Fumo = 7; // 7 and 8 are there or not
constexpr int Nuvole = 8;

constexpr int PartiDipinte = 6; // 1 to 6

// Entry 1 to 6: a colour number 1 to 4; 7 and 8: 0 or 1; entry 0 is not used.
using Colorazione = Vettore<int16_t, 8>;

// Name of a part in the movie, 1 to 8.
const char *NomeParte(int parte);

// Opens the figure in the control, as the movie opens or at a frame; paint and visibility go.
void ApriFigura(platform::MovieControl &figura);
void ApriFigura(platform::MovieControl &figura, int fotogramma);

// The movie's variable that takes a colour for the object named before.
QString VariabileColore();
// The inside of a part 1 to 6 in a colour RRGGBB.
void DipingiParte(platform::MovieControl &figura, int parte, const QString &colore,
                  const QString &variabile = VariabileColore());
// The outline of a part 1 to 8; a figure at rest has them all black, "000000".
void DipingiContorno(platform::MovieControl &figura, int parte, const QString &colore);
// Smoke (7) or clouds (8), there or not.
void MostraParte(platform::MovieControl &figura, int parte, bool presente);

// Background, the six parts in their order, smoke and clouds, in the player's colours.
void ColoraFigura(platform::MovieControl &figura, const Colorazione &colori);
