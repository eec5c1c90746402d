// The reward: a short movie in the place of the figure after every tenth right answer.
#pragma once

#include "platform/controls/label.h"
#include "platform/controls/movie_control.h"

#include <cstdint>

// Counts a right answer; true when it is the tenth, and the count starts anew.
bool ContaVersoIlPremio(int16_t &contaPremio);

// Empties the sentence and plays a reward drawn among the files of the folder. Sets `giroColori` to
// 0, so that the next task is painted anew, and `figuraDaRicaricare`, which nothing ever clears.
void MostraPremio(platform::MovieControl &figura, platform::Label &frase, int16_t &giroColori,
                  bool &figuraDaRicaricare);
