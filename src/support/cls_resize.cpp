#include "support/cls_resize.h"

#include "core/lettering.h"
#include "platform/base/errors.h"
#include "platform/controls/control.h"
#include "platform/controls/shape.h"

#include <algorithm>
#include <cmath>
#include <functional>

using namespace platform;

namespace {

// A property that a control does not have, or not now, is passed over; any other failure is tried
// again until it passes.
void Assegna(const std::function<void()> &istruzione)
{
    for (;;) {
        const int errore = Skipping(istruzione);
        if (errore == 0 || errore == SetNotSupported || errore == SetNotPermitted ||
            errore == GetNotSupported || errore == NoSuchProperty)
            return;
    }
}

int32_t Intero(double twips)
{
    return RoundToLong(twips);
}

} // namespace

void clsResize::SetSourceForm(Form &finestra)
{
    m_finestra = FormRef(finestra);
}

void clsResize::ReInitialise()
{
    Form *finestra = m_finestra.Get();
    if (finestra == nullptr)
        return;
    m_larghezza = Intero(finestra->ScaleWidth());
    m_altezza = Intero(finestra->ScaleHeight());
    m_controlli.clear();
    for (Control *controllo : finestra->Controls()) {
        // What has no place, such as a menu item or a timer, keeps zeros.
        Misure misure{.Controllo = controllo};
        Skipping([&] { misure.Sinistra = Intero(controllo->Left()); });
        Skipping([&] { misure.Alto = Intero(controllo->Top()); });
        Skipping([&] { misure.Larghezza = Intero(controllo->Width()); });
        Skipping([&] { misure.Altezza = Intero(controllo->Height()); });
        if (const auto *linea = dynamic_cast<const Line *>(controllo); linea != nullptr) {
            misure.Sinistra = Intero(linea->X1());
            misure.Alto = Intero(linea->Y1());
            misure.Larghezza = Intero(linea->X2());
            misure.Altezza = Intero(linea->Y2());
        }
        m_controlli.push_back(misure);
    }
    m_daInizializzare = false;
}

void clsResize::SizeFormToScreen(uint8_t percentuale)
{
    Form *finestra = m_finestra.Get();
    if (finestra == nullptr)
        return;
    if (m_daInizializzare)
        ReInitialise();
    const double larghezza = std::floor(percentuale / 100.0 * ScreenWidth());
    const double altezza = std::floor(percentuale / 100.0 * ScreenHeight());
    finestra->Move((ScreenWidth() - larghezza) / 2, (ScreenHeight() - altezza) / 2, larghezza,
                   altezza);
    ResizeControls();
}

void clsResize::ResizeControls()
{
    Form *finestra = m_finestra.Get();
    if (finestra == nullptr || finestra->Controls().empty() || finestra->Minimised())
        return;
    if (m_daInizializzare)
        ReInitialise();
    if (m_larghezza == 0 || m_altezza == 0)
        throw RunTimeError(DivisionByZero, finestra->Name());
    const double orizzontale = finestra->ScaleWidth() / m_larghezza;
    const double verticale = finestra->ScaleHeight() / m_altezza;
    finestra->LockDrawing(true);
    // Always from the designed values, so that rounding never adds up.
    const auto &presenti = finestra->Controls();
    for (const Misure &misure : m_controlli)
        // An element may have been taken away since.
        if (std::find(presenti.begin(), presenti.end(), misure.Controllo) != presenti.end())
            Scala(misure, orizzontale, verticale);
    finestra->LockDrawing(false);
}

void clsResize::Scala(const Misure &misure, double orizzontale, double verticale)
{
    Control &controllo = *misure.Controllo;
    QString regola = InMaiuscolo(controllo.Tag());
    if (!regola.startsWith(QLatin1Char('@')))
        regola = QStringLiteral("@L,T,W,H");
    auto *linea = dynamic_cast<Line *>(&controllo);
    if (regola.contains(QLatin1Char('L')))
        Assegna([&] {
            const double valore = misure.Sinistra * orizzontale;
            linea != nullptr ? linea->SetX1(valore) : controllo.SetLeft(valore);
        });
    if (regola.contains(QLatin1Char('T')))
        Assegna([&] {
            const double valore = misure.Alto * verticale;
            linea != nullptr ? linea->SetY1(valore) : controllo.SetTop(valore);
        });
    if (regola.contains(QLatin1Char('W')))
        Assegna([&] {
            const double valore = misure.Larghezza * orizzontale;
            linea != nullptr ? linea->SetX2(valore) : controllo.SetWidth(valore);
        });
    if (regola.contains(QLatin1Char('H')))
        Assegna([&] {
            const double valore = misure.Altezza * verticale;
            linea != nullptr ? linea->SetY2(valore) : controllo.SetHeight(valore);
        });
}
