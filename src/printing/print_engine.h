// Puts pixels on paper at a size and a place in millimetres: the printer and its driver's record,
// the sheet, and the road from the user's rectangle to that of the device.
#pragma once

#include "platform/controls/form.h"
#include "printing/print_fields.h"

#include <cstdint>
#include <optional>

// The default printer; a box and an empty name when there is none.
QString GetDefPrinterName();

// Opens the printer and takes the driver's answer to `DevMode`. An empty name becomes that of the
// default printer.
bool OpenDocPrinter(QString &nome);
// Pushes `DevMode` through the driver of the open printer.
bool ImpostaDevMode(const QString &nome);
// The same with the driver's own dialog over `finestra`.
void ProprietaStampante(platform::Form &finestra, const QString &nome);

// Printable size in whole millimetres: a margin of 0 is the corner of what the printer can reach,
// not of the paper. Zeros for a printer that is gone, -1 without a name.
bool LeggiFoglio(const QString &nome, int32_t &larghezza, int32_t &altezza, int32_t &orientamento);
// Makes `hDCStampante` for a document of that name; false for a printer that is gone.
bool CreaDCStampante(const QString &nome, const QString &titolo);

// The sheet of `NomeStampante`, upright (1) or across (2); -1 for both on failure.
void FoglioStampa(int32_t &larghezza, int32_t &altezza, std::optional<double> orientamento = {});

// The whole print, millimetres from the printable corner. False only when the user cancels; a print
// that failed has told so in a box.
bool StampaOggetto(const OggettoDaStampare &oggetto, int32_t x, int32_t y, int32_t w, int32_t h,
                   const QString &titolo);
