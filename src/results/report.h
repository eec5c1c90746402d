// A saved log: what the window shows, line by line. Reading does not match writing, and each
// consequence is meant: of a report with rows only the heading, the row count and the first row
// come back.
#pragma once

#include "platform/base/errors.h"
#include "platform/files/files.h"

#include <QString>

struct TitoliResoconto {
    QString Giocatore;
    QString Data;
    QString Nota; // the last line
};

// Replaces the file. Errors 52, 61, 70, 75, 76; on a full disk what was there stays.
template <typename Tabella>
void ScriviResoconto(const QString &percorso, const TitoliResoconto &titoli, const Tabella &tabella)
{
    constexpr int UltimaColonna = 4;
    platform::TextWriter file(percorso);
    file.PrintText(titoli.Giocatore);
    file.PrintText(titoli.Data);
    file.PrintNumber(tabella.Rows());
    for (int riga = 1; riga < tabella.Rows(); ++riga)
        for (int colonna = 1; colonna <= UltimaColonna; ++colonna)
            file.PrintText(tabella.TextMatrix(riga, colonna));
    file.PrintText(titoli.Nota);
    file.Close();
}

// Fills titles and table as far as the file goes, which is what the window then shows. Any error of
// the reader, 380 for a count of rows that no table has, 381 for the column that it lacks.
template <typename Mostra, typename Tabella>
void LeggiResoconto(platform::RecordReader &file, Mostra &&mostra, Tabella &tabella)
{
    // One more than are written.
    constexpr int UltimaColonna = 5;
    mostra(&TitoliResoconto::Giocatore, file.Text());
    mostra(&TitoliResoconto::Data, file.Text());
    const int righe = platform::RoundToLong(file.Number());
    // Every report has the header row.
    if (righe < 1)
        throw platform::RunTimeError(platform::InvalidPropertyValue);
    tabella.SetRows(righe);
    for (int riga = 1; riga < tabella.Rows(); ++riga) {
        tabella.SetTextMatrix(riga, 0, QString::number(riga));
        for (int colonna = 1; colonna <= UltimaColonna; ++colonna)
            tabella.SetTextMatrix(riga, colonna, file.Line());
    }
    mostra(&TitoliResoconto::Nota, file.Line());
}
