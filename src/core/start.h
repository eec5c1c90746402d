// From the start of the process to the splash window.
#pragma once

#include <QString>

// The start procedure. When it returns with no window open, the process ends.
void Main();

// Where the players' profiles lie, with a separator at its end.
QString CartellaImpostazioni();
bool EsisteFile(const QString &percorso);
bool EsisteCartella(const QString &percorso); // false for an empty path and on any error
// Makes the folder, whose parent must exist, and writes the readme anew.
void CreaCartella(const QString &percorso);
// Makes what is missing of the settings folders; with the program's own one comes the font.
void PreparaCartelle();
// The folder of the operating system, in small letters, with a separator at its end.
QString CartellaWindows();
// Copies and registers the cursive font once; any failure leaves silently.
void InstallaFont();
// Fills the sentence pieces from the language.
void CaricaMessaggi();
