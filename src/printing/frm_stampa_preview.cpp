// The sheet in its true shape, and the image at its true place on it.
#include "platform/base/errors.h"
#include "printing/frm_stampa.h"
#include "printing/print_fields.h"

#include <variant>

using namespace platform;

namespace {

constexpr float LatoLungo = 1905; // twips, of the sheet's surface

void Metti(VisualControl &controllo, double sinistra, double alto, double larghezza, double altezza)
{
    controllo.SetLeft(sinistra);
    controllo.SetTop(alto);
    controllo.SetWidth(larghezza);
    controllo.SetHeight(altezza);
}

} // namespace

void FrmStampa::DisegnaFoglio()
{
    lblFgW.SetCaption(QString::number(Stampa.FoglioW));
    lblFgH.SetCaption(QString::number(Stampa.FoglioH));
    // The printer went away: the former sheet stays.
    if (Stampa.FoglioW <= 0 || Stampa.FoglioH <= 0)
        return;
    const float r = static_cast<float>(Stampa.FoglioW) / static_cast<float>(Stampa.FoglioH);
    double w = LatoLungo;
    double h = LatoLungo;
    if (Stampa.FoglioW > Stampa.FoglioH)
        h = RoundToLong(double{LatoLungo / r});
    else
        w = RoundToLong(double{LatoLungo * r});
    Metti(shpFoglio, PosFoglioX, PosFoglioY, w + 8 * TwipPerPixel, h + 8 * TwipPerPixel);
    Metti(shpBordo, PosBordoX, PosBordoY, w + 2 * TwipPerPixel, h + 2 * TwipPerPixel);
    Metti(picPreview, PosAnteprimaX, PosAnteprimaY, w, h);
    if (Stampa.OggettoValido)
        AggiornaAnteprima();
}

void FrmStampa::AggiornaAnteprima()
{
    if (chkCentro.Value()) {
        txtPrX.SetText(QString::number(RoundToLong((Stampa.FoglioW - Stampa.StampaW) / 2.0)));
        txtPrY.SetText(QString::number(RoundToLong((Stampa.FoglioH - Stampa.StampaH) / 2.0)));
    }
    const bool fuori = Stampa.MargineX + Stampa.StampaW > Stampa.FoglioW ||
                       Stampa.MargineY + Stampa.StampaH > Stampa.FoglioH || Stampa.MargineX < 0 ||
                       Stampa.MargineY < 0;
    lblFuoriFoglio.SetVisible(fuori);
    Timer1.SetEnabled(fuori);
    if (Stampa.FoglioW <= 0 || Stampa.FoglioH <= 0)
        return;
    const double orizzontale = static_cast<double>(picPreview.ScaleWidth()) / Stampa.FoglioW;
    const double verticale = static_cast<double>(picPreview.ScaleHeight()) / Stampa.FoglioH;
    const DeviceRectangle area{
        RoundToLong(orizzontale * Stampa.MargineX), RoundToLong(verticale * Stampa.MargineY),
        RoundToLong(orizzontale * Stampa.StampaW), RoundToLong(verticale * Stampa.StampaH)};
    picPreview.Cls();
    if (std::holds_alternative<Form *>(Stampa.OggettoStampa))
        AnteprimaForm(area);
    else
        AnteprimaPictureBox(area);
}

bool FrmStampa::AnteprimaForm(const DeviceRectangle &area)
{
    return picPreview.StretchBitmap(area, Stampa.InfoImmagine) != -1;
}

bool FrmStampa::AnteprimaPictureBox(const DeviceRectangle &area)
{
    auto *const *controllo = std::get_if<Control *>(&Stampa.OggettoStampa);
    const auto *figura =
        controllo == nullptr ? nullptr : dynamic_cast<const PictureBox *>(*controllo);
    if (figura == nullptr)
        return false;
    if (area.Width < 1 || area.Height < 1)
        return true;
    return Skipping([&] { picPreview.PaintPicture(*figura, area); }) == 0;
}

void FrmStampa::AnteprimaSeGrande()
{
    if (Stampa.StampaW > 1 && Stampa.StampaH > 1)
        AggiornaAnteprima();
}

void FrmStampa::Lampeggia()
{
    const Color colore = lblFuoriFoglio.BackColor();
    if (colore == Rosso)
        lblFuoriFoglio.SetBackColor(SystemButtonFace);
    else if (colore == SystemButtonFace)
        lblFuoriFoglio.SetBackColor(Rosso);
}
