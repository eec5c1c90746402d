// The default profile as its 43 lines, and the same with some of them changed.
#pragma once

#include <QByteArray>
#include <QList>

inline QList<QByteArray> DefaultProfileLines()
{
    return {"True",      "False",  " 0 ",        " 4 ",    "FFFFCC",       "sfondo",
            "sfondo",    "sfondo", "sfondo",     "00FF00", "verde",        "verdi",
            "verde",     "verdi",  "FF0000",     "rosso",  "rossi",        "rossa",
            "rosse",     "0000FF", "blu",        "blu",    "blu",          "blu",
            "FFFF00",    "giallo", "gialli",     "gialla", "gialle",       " 16777088 ",
            "minuscolo", "arial",  "arial",      " 24 ",   "-2147483630 ", "-2147483633 ",
            "True",      " 255 ",  " 16777215 ", "False",  "False",        "profilo",
            "Merlin"};
}

inline QByteArray ProfileOf(const QList<QByteArray> &lines)
{
    QByteArray content;
    for (const QByteArray &line : lines)
        content += line + "\r\n";
    return content;
}

// Line numbers from 1.
inline QByteArray ProfileWith(int number, const QByteArray &line)
{
    QList<QByteArray> lines = DefaultProfileLines();
    lines[number - 1] = line;
    return ProfileOf(lines);
}
