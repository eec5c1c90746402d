// The house figure: its eight parts by number, its file, and how a colouring is put on it.
#pragma once

#include "platform/movie_control.h"

#include <array>
#include <cstdint>

constexpr int PartiDipinte = 6; // 1 to 6 are painted
constexpr int Fumo = 7;         // 7 and 8 are there or not
constexpr int Nuvole = 8;

// Entry 1 to 6: a colour number 1 to 4; 7 and 8: 0 or 1; entry 0 is not used.
using Colorazione = std::array<int16_t, 9>;

// Name of a part in the movie, 1 to 8.
const char *NomeParte(int parte);

// Opens the figure in the control and goes to the frame; paint and visibility go.
void ApriFigura(platform::MovieControl &figura, int fotogramma);

// Background, the six parts in their order, smoke and clouds, in the player's colours.
void ColoraFigura(platform::MovieControl &figura, const Colorazione &colori);
