// The settings of the current player. The variables are the truth; the file is 43 lines by
// position, loaded and saved at few moments.
#pragma once

#include "core/tables.h"

#include <QString>

#include <cstdint>

// In the order of the file. The colours of windows and controls are doubles that hold 32 bits,
// &H00BBGGRR or a system colour.
extern bool SuoniAttivi;                   // sounds are played at all
extern bool DisabilitaMousePersonalizzato; // the system's pointer instead of the program's
extern int16_t ModoInput;                  // 0 mouse, 1 two keys, 2 one switch, 3 arrow keys
extern int16_t VelocitaScansione;          // quarters of a second a step
// Rows 0 (background) and 1 to 4 (the figures' colours); column 0 RRGGBB, columns 1 to 4 the name:
// masculine singular and plural, feminine singular and plural. Row 5 is not used.
extern TabellaTesti<6, 5> Colori;
extern double ColoreSfondo;              // of the windows while `ColoriVari` is false
extern QString TipoCarattere;            // "minuscolo", "maiuscolo" or "corsivo"
extern QString FontCorrente;             // "Indis1" while `TipoCarattere` is "corsivo"
extern QString FontScelto;               // kept while "corsivo" is in force
extern int16_t DimensioneFont;           // points, of sentences only
extern double ColoreFont;                // text
extern double ColoreBottoni;             // buttons at rest
extern bool ColoriVari;                  // each window keeps its designed background
extern double ColorePulsantiSelezionati; // button under the pointer or the scan
extern double ColoreSfondoTesto;         // behind sentences
extern bool PassaggioLivelli;            // levels change by themselves
extern bool SalvaUtente;                 // the log of exercises is in the menu
extern QString StringaProfilo;           // loaded and saved, read by nothing
extern QString NomePersonaggio;          // likewise

// Current player: full path of the profile, and the name. Written by `Main`, the menu's list of
// players and the configuration window; not stored.
extern QString FileUtente;
extern QString NomeUtente;

void ImpostazioniPredefinite();
void ColoriPredefiniti();

// Writes the 43 lines over `FileUtente`. Any failure is an error of the caller.
void SalvaImpostazioni();
// Reads them. A file that is missing, short or damaged gives the defaults silently and stays.
void CaricaImpostazioni();

// Back to process start; for tests.
void AzzeraProfilo();
