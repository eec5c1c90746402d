// The common dialogs, driven with plain texts and controls. Cancel is the one negative result.
#pragma once

#include "platform/controls/visual_control.h"

#include <QString>

// Opens on black, whatever the control shows; a chosen colour becomes the control's text colour.
bool ScegliColore(platform::VisualControl &controllo);

// Opens with nothing chosen; name, size in whole points and style become the control's font.
bool ScegliFont(platform::VisualControl &controllo);

enum class ModoFile { Apri, Salva };

// Gives the path, empty if none. `filtro` is a pattern such as "*.rpt", `cartella` a literal of the
// program. Error 6 for a proposed name of more than 250 letters. `UltimoFileScelto` then holds the
// name without its folder, filled up to 255 letters with zeros, cancelled or not.
QString ScegliFile(ModoFile modo, const QString &titolo, const QString &nome, const QString &filtro,
                   const QString &cartella, const QString &estensione);
