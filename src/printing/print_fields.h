// What the print engine and its dialog share. Printer, copies and the driver's record outlive the
// dialog; all else starts anew at each opening.
#pragma once

#include "platform/controls/form.h"
#include "platform/host/printing.h"

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <memory>
#include <variant>

namespace platform {
class Control;
}

// What is asked to be printed: nothing, a window, or a control (a picture box, or an error).
using OggettoDaStampare = std::variant<std::monostate, platform::Form *, platform::Control *>;

struct CampiStampa {
    QString NomeStampante;   // printed to; empty until the first use, then the default printer
    QString StampanteScelta; // in the dialog's list
    int32_t NumeroCopie = 0;
    int32_t CopieIniziali = 0;         // when the dialog opened
    int32_t OrientamentoRichiesto = 0; // 1 upright, 2 across, 0 leave as is
    platform::DeviceMode DevMode;
    platform::DeviceMode DevModeIniziale;                // when the dialog opened
    uint64_t hStampante = 0;                             // 0: closed
    std::unique_ptr<platform::PrintDevice> hDCStampante; // of the print in progress
    platform::DeviceMode BufferIngresso;                 // to the driver
    platform::DeviceMode BufferUscita;                   // from the driver
    QString NomeDocumento;                               // the same print's

    OggettoDaStampare OggettoStampa;
    bool OggettoValido = false;    // false: the dialog only sets up a printer
    int32_t LarghezzaImmagine = 0; // of the grabbed window, pixels
    int32_t AltezzaImmagine = 0;
    std::shared_ptr<QByteArray> MemoriaImmagine; // its bits, until they are printed or given up
    platform::Bitmap InfoImmagine;
    QString TitoloStampa;

    // Of the dialog; millimetres.
    int32_t FoglioW = 0;
    int32_t FoglioH = 0;
    int32_t MargineX = 0;
    int32_t MargineY = 0;
    int32_t StampaW = 0;
    int32_t StampaH = 0;
    float Rapporto = 0;         // width over height, from the caller's numbers
    float LarghezzaOrigine = 0; // of the source in its own units, for the scale
};

extern CampiStampa Stampa;

// Back to process start; for tests.
void AzzeraStampa();
// A new opening, of the set-up of a printer too.
void RicominciaStampa();

// The critical box of a routine of the print form.
void ErroreStampa(const QString &routine, const QString &testo);
