// The log on paper, as a teacher puts it in a folder.
#pragma once

#include "platform/controls/grid.h"
#include "results/report.h"

// Prints on the default printer, across the sheet. The table begins at `x` and, below the heading,
// at `y` (twips); it goes on over as many pages as it needs, each with its header row, and its
// columns are made narrower together when the sheet is. Error 482 when it cannot be printed.
void StampaResoconto(const TitoliResoconto &titoli, const QString &giocatore,
                     const platform::Grid &tabella, double x, double y);
