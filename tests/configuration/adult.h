// An adult at the window of settings, for its tests.
#pragma once

#include "configuration/form_configura.h"
#include "core/palette.h"
#include "language/language.h"
#include "support/exercise_fixture.h"

#include <QDir>
#include <QTest>

inline const QString Settings = QStringLiteral("ImpostazioniProgrammiTesmi/morlenekvt/");

inline QString ProfilePath(const QString &name)
{
    return QStringLiteral("C:\\ImpostazioniProgrammiTesmi\\morlenekvt\\") + name;
}

class Adult : public Player {
public:
    Adult()
    {
        PreparaColoriWeb();
        QDir().mkpath(Host.Drive.filePath(Settings));
    }

    FormConfigura &OpenWindow()
    {
        auto *window = new FormConfigura;
        window->Show();
        QCoreApplication::processEvents();
        Host.TakeEvents();
        return *window;
    }

    // Saves the settings in force as the profile of a player.
    void Save(const QString &name) const
    {
        const QString file = FileUtente;
        FileUtente = ProfilePath(name + QStringLiteral(".ini"));
        SalvaImpostazioni();
        FileUtente = file;
    }

    QByteArray Profile(const QString &name) const
    {
        return Host.DriveFile(Settings + name + QStringLiteral(".ini"));
    }

    QStringList Profiles() const
    {
        return QDir(Host.Drive.filePath(Settings)).entryList(QDir::Files, QDir::Name);
    }

    // Questions for a colour's names, with their answers.
    void AnswerNames(const QStringList &names)
    {
        const QStringList keys = {QStringLiteral("0042"), QStringLiteral("0043"),
                                  QStringLiteral("0044"), QStringLiteral("0045")};
        for (int i = 0; i < 4; ++i)
            Host.ExpectInput(MLSTesto(keys.at(i)), names.at(i));
    }
};
