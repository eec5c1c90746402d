// Reads a sentence and a figure as a child does, with no look into the program: says whether the
// sentence is true of the figure as it is shown.
#pragma once

#include <QString>

// `figure` is what the movie shows: "comignolo RRGGBB, ... fumo 1, nuvole 0". Fails the test for a
// sentence that it cannot read.
bool SentenceIsTrue(const QString &sentence, const QString &figure);
