// The state that every window reads and writes directly: the score, the log, the sentence pieces
// and the labels. It is filled by `Main` and lives until the process ends.
#pragma once

#include "core/tables.h"

#include <QString>

#include <cstdint>
#include <memory>

class clsResize;

// The rescaling object of the window that was opened last. Written by every window's load.
extern std::shared_ptr<clsResize> Ridimensionatore;

// Right and wrong answers of the running exercise: written by the exercises, cleared by the
// activation of the menu.
extern int32_t Esatti;
extern int16_t Errati;

// The log of this run: rows 0 to 500; columns title, level, right, wrong. The menu writes the
// title, the exercises the rest.
constexpr int RigheEserciziEseguiti = 501;
extern TabellaTesti<RigheEserciziEseguiti, 4> EserciziEseguiti;
// Current row; 0 means no entry. Cleared by a change of player.
extern int16_t NumeroEserciziEseguiti;

// Labels of the status bar, each with one blank ahead. Written by `Main`.
extern QString EtichettaEsatti;
extern QString EtichettaErrati;
extern QString EtichettaLivello;

// What the last file dialog returned. Written by the dialogs of files.
extern QString UltimoFileScelto;

// The sentence pieces 0 to 34, with their blanks; error 9 outside. Written by `CaricaMessaggi`.
constexpr int QuantiMessaggi = 35;
QString &Messaggi(int indice);

// Puts all shared state back to its values at process start; for tests.
void AzzeraStatoCondiviso();
