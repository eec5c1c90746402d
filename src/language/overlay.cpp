// The language file laid over a window.
#include "language/language.h"

#include "platform/base/errors.h"
#include "platform/controls/control.h"
#include "platform/files/ini.h"

#include <memory>

using namespace platform;

namespace {

// A window and the language that is laid over it. The file is looked up once for the window: there
// are hundreds of values to ask for.
struct Sovrapposta {
    Form &Finestra;
    std::shared_ptr<const IniFile> Lingua; // nothing when there is no such file

    // Error 53 when there is no such language file: the statement that asked is skipped as a whole,
    // and the design stays.
    QString Valore(const QString &sezione, const QString &chiave) const
    {
        if (!Lingua)
            throw RunTimeError(FileNotFound, FileLinguaCorrente());
        return MLSValore(*Lingua, sezione, chiave);
    }
    QString Valore(const QString &chiave) const { return Valore(Finestra.Name(), chiave); }
};

// A property takes the text that is there; without one, or without the property, the design stays.
void Carica(const Sovrapposta &sopra, Control &controllo, const QString &chiave,
            void (Control::*imposta)(const QString &))
{
    Skipping([&] {
        const QString testo = sopra.Valore(chiave);
        if (!testo.isEmpty())
            (controllo.*imposta)(testo);
    });
}

// Every tab takes its text, also an empty one. Tabs that are no number have none to take.
void CaricaLinguette(const Sovrapposta &sopra, Control &controllo, const QString &nome)
{
    int linguette = 0;
    if (Skipping([&] { linguette = controllo.Tabs(); }) != 0)
        return;
    for (int n = 1; n <= linguette; ++n)
        Skipping([&] {
            controllo.SetTabCaption(
                n, sopra.Valore(QStringLiteral("%1.TabCaption(%2)").arg(nome).arg(n)));
        });
}

void CaricaControllo(const Sovrapposta &sopra, Control &controllo)
{
    QString nome = controllo.Name();
    int indice = -1;
    if (Skipping([&] { indice = controllo.Index(); }) == 0 && indice >= 0)
        nome += QStringLiteral("(%1)").arg(indice);
    Carica(sopra, controllo, nome + QStringLiteral(".Caption"), &Control::SetCaption);
    Carica(sopra, controllo, nome + QStringLiteral(".ToolTipText"), &Control::SetToolTipText);
    Carica(sopra, controllo, nome + QStringLiteral(".Tag"), &Control::SetTag);
    CaricaLinguette(sopra, controllo, nome);
}

// The spoken names stand in a section of their own, under window and control. An array may have one
// name for all: its elements are counted from 1 behind it. What the language does not name is
// called as designed again.
void CaricaVoce(const Sovrapposta &sopra, Control &controllo)
{
    if (controllo.SpokenName().isEmpty())
        return;
    const auto voce = [&](const QString &nome) {
        return sopra.Valore(QStringLiteral("Voci"),
                            sopra.Finestra.Name() + QLatin1Char('.') + nome);
    };
    Skipping([&] {
        QString nome = voce(controllo.Key());
        if (nome.isEmpty() && controllo.Key() != controllo.Name()) {
            nome = voce(controllo.Name());
            if (!nome.isEmpty())
                nome += QStringLiteral(" %1").arg(controllo.Index() + 1);
        }
        controllo.TranslateSpokenName(nome);
    });
}

} // namespace

void MLSCaricaForm(Form &finestra)
{
    const FormRef riferimento(finestra);
    const QString nome = finestra.Name();
    Sovrapposta sopra{finestra, nullptr};
    Skipping([&] { sopra.Lingua = OpenIni(FileLinguaCorrente()); });
    // A key that is not there empties the title and the tag; a window without a title is not asked.
    if (!finestra.Caption().isEmpty())
        Skipping([&] { finestra.SetCaption(sopra.Valore(nome + QStringLiteral(".Caption"))); });
    Skipping([&] { finestra.SetTag(sopra.Valore(nome + QStringLiteral(".Tag"))); });
    // By number: an event that was let through may add a control.
    // NOLINTNEXTLINE(modernize-loop-convert)
    for (size_t i = 0; i < finestra.Controls().size(); ++i) {
        CaricaControllo(sopra, *finestra.Controls().at(i));
        CaricaVoce(sopra, *finestra.Controls().at(i));
        DoEvents();
        // An event that was let through may have unloaded the window.
        if (riferimento.Get() == nullptr)
            return;
    }
}
