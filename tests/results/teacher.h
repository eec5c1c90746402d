// A teacher at the log of exercises, for its tests.
#pragma once

#include "language/language.h"
#include "results/form_esercizi_eseguiti.h"
#include "support/exercise_fixture.h"

#include <QDir>
#include <QStringList>

inline const QString Settings = QStringLiteral("ImpostazioniProgrammiTesmi/morlenekvt/");
inline const QString Boxes = QStringLiteral("Morlenekvt");

class Teacher : public Player {
public:
    Teacher()
    {
        QDir().mkpath(Host.Drive.filePath(Settings + QStringLiteral("dati")));
        NomeUtente = QStringLiteral("Niccolò");
        EtichettaEsatti = QStringLiteral(" Esatti");
    }

    // One exercise, left at once: the row after it stays empty.
    static void DoExercise(const char *title, const char *level, const char *right,
                           const char *wrong)
    {
        ++NumeroEserciziEseguiti;
        EserciziEseguiti(NumeroEserciziEseguiti, 0) = QString::fromUtf8(title);
        EserciziEseguiti(NumeroEserciziEseguiti, 1) = QString::fromUtf8(level);
        EserciziEseguiti(NumeroEserciziEseguiti, 2) = QString::fromUtf8(right);
        EserciziEseguiti(NumeroEserciziEseguiti, 3) = QString::fromUtf8(wrong);
        ++NumeroEserciziEseguiti;
    }

    FormEserciziEseguiti &OpenLog()
    {
        auto *log = new FormEserciziEseguiti;
        log->Show();
        QCoreApplication::processEvents();
        return *log;
    }

    QString File(const QString &name) const { return Host.Drive.filePath(name); }
    QByteArray Content(const QString &name) const { return Host.DriveFile(name); }

    void ExpectError(const char *key)
    {
        Host.ExpectBox(platform::Box{.Text = MLSTesto(QString::fromLatin1(key)),
                                     .Title = Boxes,
                                     .Icon = platform::BoxIcon::Critical});
    }

    // Opens a report of that content.
    FormEserciziEseguiti &OpenReport(const QByteArray &content, bool good)
    {
        FormEserciziEseguiti &log = OpenLog();
        Host.WriteDriveFile(QStringLiteral("prova.rpt"), content);
        Host.ExpectFile(QStringLiteral("Apri"), File(QStringLiteral("prova.rpt")));
        if (!good)
            ExpectError("0077");
        log.mnuApri.OnClick();
        return log;
    }
};

inline QStringList Row(const platform::Grid &grid, int row)
{
    QStringList texts;
    for (int column = 0; column < grid.Cols(); ++column)
        texts << grid.TextMatrix(row, column);
    return texts;
}
