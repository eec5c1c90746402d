// The one entry to printing: takes a window or a picture and shows the page set-up dialog for it.
#pragma once

#include "printing/print_fields.h"

#include <optional>

struct RichiestaStampa {
    OggettoDaStampare Oggetto{}; // nothing: the dialog only sets up the printer
    int32_t X = 0;               // left margin, millimetres
    int32_t Y = 0;
    int32_t W = 0; // printed size
    std::optional<double> H{};
    std::optional<double> Orientamento{}; // 1 upright, 2 across
    std::optional<QString> Titolo{};      // of the document; the object's name when missing
    std::optional<double> Scala{};        // units of the source to a millimetre
};

// Comes back when the dialog has closed. A height of 0 is error 11.
void StampaFPB(const RichiestaStampa &richiesta);
