// The language file laid over a window.
#include "language/language.h"

#include "platform/control.h"
#include "platform/errors.h"
#include "platform/files.h"

using namespace platform;

namespace {

QString Valore(const Form &finestra, const QString &chiave)
{
    QString testo;
    Skipping([&] {
        testo = MLSLeggiIni(AppPath() + QStringLiteral("\\lngmorlene\\") + LinguaCorrente +
                                QStringLiteral(".lng"),
                            finestra.Name(), chiave);
    });
    return testo;
}

// Every tab takes its text, also an empty one. Tabs that are no number have none to take.
void CaricaLinguette(const Form &finestra, Control &controllo, const QString &nome)
{
    int linguette = 0;
    if (Skipping([&] { linguette = controllo.Tabs(); }) != 0)
        return;
    for (int n = 1; n <= linguette; ++n)
        Skipping([&] {
            controllo.SetTabCaption(n, Valore(finestra, QStringLiteral("%1.TabCaption(%2)").arg(nome).arg(n)));
        });
}

void CaricaControllo(const Form &finestra, Control &controllo)
{
    QString nome = controllo.Name();
    int indice = -1;
    if (Skipping([&] { indice = controllo.Index(); }) == 0 && indice >= 0)
        nome += QStringLiteral("(%1)").arg(indice);

    const QString testo = Valore(finestra, nome + QStringLiteral(".Caption"));
    if (!testo.isEmpty())
        Skipping([&] { controllo.SetCaption(testo); });
    const QString suggerimento = Valore(finestra, nome + QStringLiteral(".ToolTipText"));
    if (!suggerimento.isEmpty())
        Skipping([&] { controllo.SetToolTipText(suggerimento); });
    const QString contrassegno = Valore(finestra, nome + QStringLiteral(".Tag"));
    if (!contrassegno.isEmpty())
        Skipping([&] { controllo.SetTag(contrassegno); });
    CaricaLinguette(finestra, controllo, nome);
}

} // namespace

void MLSCaricaForm(Form &finestra)
{
    if (LinguaCorrente.isEmpty())
        LeggiLinguaCorrente();
    const QString nome = finestra.Name();
    const FormRef riferimento(finestra);
    // An empty text empties the title; a window without one is not asked.
    if (!finestra.Caption().isEmpty())
        finestra.SetCaption(Valore(finestra, nome + QStringLiteral(".Caption")));
    finestra.SetTag(Valore(finestra, nome + QStringLiteral(".Tag")));
    for (size_t i = 0; i < finestra.Controls().size(); ++i) {
        CaricaControllo(finestra, *finestra.Controls().at(i));
        DoEvents();
        // An event that was let through may have unloaded the window.
        if (riferimento.Get() == nullptr)
            return;
    }
}
