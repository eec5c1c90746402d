// The page of the players: choosing one, making one. A player is a profile file, and the settings
// in force are saved to the old one first.
#include "configuration/form_configura.h"

#include "core/lettering.h"
#include "core/profile.h"
#include "core/start.h"
#include "platform/errors.h"
#include "platform/files.h"

using namespace platform;

void FormConfigura::ScegliTipoUtente()
{
    SalvaImpostazioni();
    if (OptionUtente(0).Value()) {
        // Nothing is loaded: the settings in force go over to the default player: meant.
        NomeUtente = QStringLiteral("_predefinito");
        Label4.SetCaption(NomeUtente);
        FileUtente = CartellaImpostazioni() + QStringLiteral("_predefinito.ini");
        TextNuovoUtente.SetVisible(false);
        ListModificaUtente.SetVisible(false);
    } else if (OptionUtente(1).Value()) {
        ListModificaUtente.SetVisible(true);
        ListModificaUtente.Clear();
        QStringList nomi;
        Skipping([&] {
            nomi =
                DirList(CartellaImpostazioni() + QStringLiteral("*.ini"), LookUp::FilesAndFolders);
        });
        for (const QString &nome : nomi)
            if (InMinuscolo(nome) != QStringLiteral("_predefinito.ini"))
                ListModificaUtente.AddItem(InMaiuscolo(nome.chopped(4)));
        TextNuovoUtente.SetVisible(false);
    } else if (OptionUtente(2).Value()) {
        TextNuovoUtente.SetText({});
        TextNuovoUtente.SetVisible(true);
        Skipping([&] { TextNuovoUtente.SetFocus(); });
        ListModificaUtente.SetVisible(false);
    }
}

void FormConfigura::ModificaUtente()
{
    SalvaImpostazioni();
    FileUtente = CartellaImpostazioni() + ListModificaUtente.Text() + QStringLiteral(".ini");
    NomeUtente = ListModificaUtente.Text();
    Label4.SetCaption(NomeUtente);
    CaricaImpostazioni();
    ImpostaConfigurazioni();
}

void FormConfigura::ScriviNuovoUtente()
{
    // Nothing is checked: a name that the file layer refuses fails at the next save.
    const QString nome = TextNuovoUtente.Text();
    if (nome.trimmed().isEmpty())
        return;
    FileUtente = CartellaImpostazioni() + nome + QStringLiteral(".ini");
    NomeUtente = nome;
    Label4.SetCaption(NomeUtente);
}
