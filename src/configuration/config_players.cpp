#include "configuration/config_players.h"

#include "core/lettering.h"
#include "core/profile.h"
#include "core/start.h"
#include "platform/base/errors.h"
#include "platform/files/files.h"

using namespace platform;

PaginaUtenti::PaginaUtenti(Label &nome, ControlArray<OptionButton> &tipi, ListBox &esistenti,
                           TextBox &nuovo, std::function<void()> caricato)
    : m_nome(nome), m_tipi(tipi), m_esistenti(esistenti), m_nuovo(nuovo),
      m_caricato(std::move(caricato))
{
}

void PaginaUtenti::ScegliTipo()
{
    SalvaImpostazioni();
    if (m_tipi(0).Value()) {
        // Nothing is loaded: the settings in force go over to the default player: meant.
        NomeUtente = QStringLiteral("_predefinito");
        m_nome.SetCaption(NomeUtente);
        FileUtente = CartellaImpostazioni() + QStringLiteral("_predefinito.ini");
        m_nuovo.SetVisible(false);
        m_esistenti.SetVisible(false);
    } else if (m_tipi(1).Value()) {
        m_esistenti.SetVisible(true);
        m_esistenti.Clear();
        QStringList nomi;
        Skipping([&] {
            nomi =
                DirList(CartellaImpostazioni() + QStringLiteral("*.ini"), LookUp::FilesAndFolders);
        });
        for (const QString &nome : nomi)
            if (InMinuscolo(nome) != QStringLiteral("_predefinito.ini"))
                m_esistenti.AddItem(InMaiuscolo(nome.chopped(4)));
        m_nuovo.SetVisible(false);
    } else if (m_tipi(2).Value()) {
        m_nuovo.SetText({});
        m_nuovo.SetVisible(true);
        Skipping([&] { m_nuovo.SetFocus(); });
        m_esistenti.SetVisible(false);
    }
}

void PaginaUtenti::Modifica()
{
    SalvaImpostazioni();
    FileUtente = CartellaImpostazioni() + m_esistenti.Text() + QStringLiteral(".ini");
    NomeUtente = m_esistenti.Text();
    m_nome.SetCaption(NomeUtente);
    CaricaImpostazioni();
    m_caricato();
}

void PaginaUtenti::ScriviNuovo()
{
    // Nothing is checked: a name that the file layer refuses fails at the next save.
    const QString nome = m_nuovo.Text();
    if (nome.trimmed().isEmpty())
        return;
    FileUtente = CartellaImpostazioni() + nome + QStringLiteral(".ini");
    NomeUtente = nome;
    m_nome.SetCaption(NomeUtente);
}
