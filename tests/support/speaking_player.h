// A player who speaks one of the shipped languages: its texts, and the settings of the ready player
// whose colours have their names in it. Italian is spoken by a new player.
#pragma once

#include "core/profile.h"
#include "core/shared_state.h"
#include "core/start.h"
#include "language/language.h"
#include "support/exercise_fixture.h"
#include "support/language_file.h"

#include <QFile>

// "français.lng" -> "français".
inline QString LanguageOf(const QString &file)
{
    return file.chopped(4);
}

// "français" -> "Français".
inline QString ReadyPlayerOf(const QString &language)
{
    return language.left(1).toUpper() + language.mid(1);
}

class SpeakingPlayer : public Player {
public:
    explicit SpeakingPlayer(const QString &language)
    {
        SuoniAttivi = false;
        LinguaCorrente = language;
        CaricaMessaggi();
        if (language == QStringLiteral("italiano"))
            return;
        const QString name = ReadyPlayerOf(language);
        QFile ready(QStringLiteral(SOURCE_DIR "/data/giocatori/") + name + QStringLiteral(".ini"));
        QVERIFY2(ready.open(QIODevice::ReadOnly), qPrintable(name));
        Host.WriteDriveFile(QStringLiteral("ImpostazioniProgrammiTesmi/morlenekvt/") + name +
                                QStringLiteral(".ini"),
                            ready.readAll());
        NomeUtente = name;
        FileUtente = CartellaImpostazioni() + name + QStringLiteral(".ini");
        CaricaImpostazioni();
        SuoniAttivi = false;
    }
};
