// The texts of the program: numbered ones by key, and the captions that a language file lays over a
// window. No look-up ever fails: what is not there is an empty text, or keeps the design.
#pragma once

#include "platform/controls/form.h"

#include <QString>
#include <QStringList>

namespace platform {
class IniFile;
}

// Base name of the current language file; empty: not yet known. Written by the first look-up and by
// the language menu.
extern QString LinguaCorrente;

// The value of a key, empty when it is not there. Error 53 for a missing file.
//
// Up to 64,000 bytes the file is an initialisation file. A larger one is scanned by lines whatever
// the section, and each consequence is meant: the first line that begins with the key wins, in any
// section and also where a longer key begins so, and a value without quotes loses its first and
// last letter.
QString MLSLeggiIni(const QString &file, const QString &sezione, const QString &chiave);

// The same of a file that is open: for many values at once.
QString MLSValore(const platform::IniFile &file, const QString &sezione, const QString &chiave);

// A failed write is silent.
void MLSScriviIni(const QString &file, const QString &sezione, const QString &chiave,
                  const QString &valore);

// The text of four digits such as "0042"; finds the current language on first use.
QString MLSTesto(const QString &chiave);

// Lays the current language over a window and its controls, spoken names too. Pending events pass
// at each control.
void MLSCaricaForm(platform::Form &finestra);

// Full path of the current language's file.
QString FileLinguaCorrente();
// File names of the languages that are there, in the order of the look-up.
QStringList LingueInstallate();
// Reads `LinguaCorrente` from the setting, also when it is known already.
void LeggiLinguaCorrente();
// Writes `LinguaCorrente` into the setting, so that any name can be read back.
void SalvaLinguaCorrente();
