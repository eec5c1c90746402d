// Reads a sentence and a figure as a child does, with no look into the program: says whether the
// sentence is true of the figure as it is shown.
#pragma once

#include <QMap>
#include <QString>

// `figure` is what the movie shows: "comignolo RRGGBB, ... fumo 1, nuvole 0". Fails the test for a
// sentence that it cannot read.
bool SentenceIsTrue(const QString &sentence, const QString &figure);
// The same of a figure whose parts were taken apart before.
bool SentenceIsTrue(const QString &sentence, const QMap<QString, QString> &parts);

// The figure's parts as shown: "tetto" -> "00FF00", "fumo" -> "1".
QMap<QString, QString> PartsOf(const QString &figure);

// Only the four colours of a new player stand on its parts.
bool IsPainted(const QString &figure);
