// The grammar of the sentences about a figure: which piece opens a statement on a part, and which
// form of a colour's name agrees with it.
#pragma once

#include <QString>

// The opening of a statement on a painted part, 1 to 6, up to where the colour's name starts.
QString AperturaPositiva(int parte);
QString AperturaNegativa(int parte);

// The name of colour number 1 to 4 in the gender and number of the part's noun, 1 to 6.
QString NomeColore(int colore, int parte);

// The whole statement that smoke (7) or clouds (8) are there, or are not.
QString FrasePresenza(int parte, bool presente);

// The piece between two statements, with its blanks.
QString Congiunzione();

// A finished sentence in the player's writing: all capitals, or small letters with the first one
// capital (also in cursive).
QString InStile(const QString &frase);
