// The language file laid over a window.
#include "language/language.h"

#include "platform/base/errors.h"
#include "platform/controls/control.h"

using namespace platform;

namespace {

// Error 53 when there is no such language file: the statement that asked is skipped as a whole, and
// the design stays.
QString Valore(const Form &finestra, const QString &chiave)
{
    return MLSLeggiIni(FileLinguaCorrente(), finestra.Name(), chiave);
}

// A property takes the text that is there; without one, or without the property, the design stays.
void Carica(const Form &finestra, Control &controllo, const QString &chiave,
            void (Control::*imposta)(const QString &))
{
    Skipping([&] {
        const QString testo = Valore(finestra, chiave);
        if (!testo.isEmpty())
            (controllo.*imposta)(testo);
    });
}

// Every tab takes its text, also an empty one. Tabs that are no number have none to take.
void CaricaLinguette(const Form &finestra, Control &controllo, const QString &nome)
{
    int linguette = 0;
    if (Skipping([&] { linguette = controllo.Tabs(); }) != 0)
        return;
    for (int n = 1; n <= linguette; ++n)
        Skipping([&] {
            controllo.SetTabCaption(
                n, Valore(finestra, QStringLiteral("%1.TabCaption(%2)").arg(nome).arg(n)));
        });
}

void CaricaControllo(const Form &finestra, Control &controllo)
{
    QString nome = controllo.Name();
    int indice = -1;
    if (Skipping([&] { indice = controllo.Index(); }) == 0 && indice >= 0)
        nome += QStringLiteral("(%1)").arg(indice);
    Carica(finestra, controllo, nome + QStringLiteral(".Caption"), &Control::SetCaption);
    Carica(finestra, controllo, nome + QStringLiteral(".ToolTipText"), &Control::SetToolTipText);
    Carica(finestra, controllo, nome + QStringLiteral(".Tag"), &Control::SetTag);
    CaricaLinguette(finestra, controllo, nome);
}

// The spoken names stand in a section of their own, under window and control. An array may have one
// name for all: its elements are counted from 1 behind it. What the language does not name is
// called as designed again.
void CaricaVoce(const Form &finestra, Control &controllo)
{
    if (controllo.SpokenName().isEmpty())
        return;
    const auto voce = [&](const QString &nome) {
        return MLSLeggiIni(FileLinguaCorrente(), QStringLiteral("Voci"),
                           finestra.Name() + QLatin1Char('.') + nome);
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
    // A key that is not there empties the title and the tag; a window without a title is not asked.
    if (!finestra.Caption().isEmpty())
        Skipping([&] { finestra.SetCaption(Valore(finestra, nome + QStringLiteral(".Caption"))); });
    Skipping([&] { finestra.SetTag(Valore(finestra, nome + QStringLiteral(".Tag"))); });
    for (size_t i = 0; i < finestra.Controls().size(); ++i) {
        CaricaControllo(finestra, *finestra.Controls().at(i));
        CaricaVoce(finestra, *finestra.Controls().at(i));
        DoEvents();
        // An event that was let through may have unloaded the window.
        if (riferimento.Get() == nullptr)
            return;
    }
}
