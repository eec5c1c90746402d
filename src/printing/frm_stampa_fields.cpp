// The dialog's fields: what each takes, and what follows from it.
#include "platform/base/errors.h"
#include "platform/base/numbers.h"
#include "printing/frm_stampa.h"
#include "printing/print_fields.h"

#include <algorithm>
#include <limits>

using namespace platform;

namespace {

constexpr int KeyBackspace = 8;

bool Cifra(QChar lettera)
{
    return lettera >= QLatin1Char('0') && lettera <= QLatin1Char('9');
}

int32_t Valore(const TextBox &campo)
{
    return RoundToLong(std::clamp<double>(LeadingNumber(campo.Text()),
                                          std::numeric_limits<int32_t>::min(),
                                          std::numeric_limits<int32_t>::max()));
}

// Writes the nearest end for a number outside its limits, with that text's own Change.
void Limita(TextBox &campo, int minimo, int massimo)
{
    const double valore = LeadingNumber(campo.Text());
    if (valore < minimo)
        campo.SetText(QString::number(minimo));
    else if (valore > massimo)
        campo.SetText(QString::number(massimo));
}

void Scrivi(TextBox &campo, double valore)
{
    campo.SetText(QString::number(RoundToLong(valore)));
}

} // namespace

void FrmStampa::CollegaCampi()
{
    for (TextBox *campo : {&txtPrX, &txtPrY, &txtPrW, &txtPrH, &txtNCopies})
        campo->OnKeyPress = Cifra;
    txtPrW.OnChange = [this] {
        Limita(txtPrW, 1, MisuraMassima);
        Stampa.StampaW = Valore(txtPrW);
        txtScala.SetText(
            FormatGrouped(static_cast<double>(Stampa.LarghezzaOrigine) / Stampa.StampaW));
    };
    txtPrH.OnChange = [this] {
        Limita(txtPrH, 1, MisuraMassima);
        Stampa.StampaH = Valore(txtPrH);
    };
    txtPrX.OnChange = [this] {
        Limita(txtPrX, -MisuraMassima, MisuraMassima);
        Stampa.MargineX = Valore(txtPrX);
    };
    txtPrY.OnChange = [this] {
        Limita(txtPrY, -MisuraMassima, MisuraMassima);
        Stampa.MargineY = Valore(txtPrY);
    };
    txtNCopies.OnChange = [this] { Stampa.NumeroCopie = Valore(txtNCopies); };

    txtPrW.OnKeyUp = [this](int, int) { CambiaLarghezza(); };
    updPrW.OnChange = [this] { CambiaLarghezza(); };
    txtPrH.OnKeyUp = [this](int, int) { CambiaAltezza(); };
    updPrH.OnChange = [this] { CambiaAltezza(); };
    txtPrX.OnKeyUp = txtPrY.OnKeyUp = [this](int, int) { AggiornaAnteprima(); };
    updPrX.OnChange = updPrY.OnChange = [this] { AggiornaAnteprima(); };

    chkCentro.OnClick = [this] { CambiaCentro(); };
    chkProporzioni.OnClick = [this] { CambiaProporzioni(); };
    cmdOrigine.OnClick = [this] {
        txtPrX.SetText(QStringLiteral("0"));
        txtPrY.SetText(QStringLiteral("0"));
        AggiornaAnteprima();
    };
    cmdMax.OnClick = [this] { PortaAlMassimo(); };

    txtScala.OnKeyPress = [this](QChar lettera) {
        // The letter "n" passes as it stands: meant.
        if (!Cifra(lettera) && lettera != QLatin1Char('.') && lettera != QLatin1Char('n'))
            return false;
        AnteprimaSeGrande();
        return true;
    };
    txtScala.OnKeyDown = [this](int tasto, int) {
        if (tasto == KeyEnter)
            TastoScala();
        else if (tasto == KeyBackspace) // is no letter, so it does not come as one
            AnteprimaSeGrande();
    };
    txtScala.OnLostFocus = cmdScalaOK.OnClick = [this] { TastoScala(); };
}

void FrmStampa::AltezzaDallaLarghezza()
{
    // Without an object there is no ratio yet.
    if (Stampa.Rapporto > 0)
        Scrivi(txtPrH, Stampa.StampaW / static_cast<double>(Stampa.Rapporto));
}

void FrmStampa::LarghezzaDallAltezza()
{
    Scrivi(txtPrW, static_cast<double>(Stampa.Rapporto) * Stampa.StampaH);
}

void FrmStampa::CambiaLarghezza()
{
    if (chkProporzioni.Value())
        AltezzaDallaLarghezza();
    DoEvents();
    AnteprimaSeGrande();
}

void FrmStampa::CambiaAltezza()
{
    if (chkProporzioni.Value())
        LarghezzaDallAltezza();
    DoEvents();
    AnteprimaSeGrande();
}

void FrmStampa::CambiaCentro()
{
    const bool libero = !chkCentro.Value();
    for (VisualControl *controllo :
         std::initializer_list<VisualControl *>{&txtPrX, &txtPrY, &updPrX, &updPrY, &cmdOrigine})
        controllo->SetEnabled(libero);
    if (!libero)
        AggiornaAnteprima();
}

void FrmStampa::CambiaProporzioni()
{
    txtScala.SetEnabled(chkProporzioni.Value());
    if (!chkProporzioni.Value()) {
        lblLblScala.SetCaption(QStringLiteral("Scala X:"));
        return;
    }
    AltezzaDallaLarghezza();
    lblLblScala.SetCaption(QStringLiteral("Scala:"));
    DoEvents();
    AnteprimaSeGrande();
}

void FrmStampa::PortaAlMassimo()
{
    if (Stampa.FoglioW <= 0 || Stampa.FoglioH <= 0)
        return;
    if (chkProporzioni.Value()) {
        const float foglio =
            static_cast<float>(Stampa.FoglioW) / static_cast<float>(Stampa.FoglioH);
        const float stampa =
            static_cast<float>(Stampa.StampaW) / static_cast<float>(Stampa.StampaH);
        if (foglio <= stampa) {
            Scrivi(txtPrW, Stampa.FoglioW);
            AltezzaDallaLarghezza();
            txtPrX.SetText(QStringLiteral("0"));
        } else {
            Scrivi(txtPrH, Stampa.FoglioH);
            LarghezzaDallAltezza();
            txtPrY.SetText(QStringLiteral("0"));
        }
    } else {
        Scrivi(txtPrW, Stampa.FoglioW);
        Scrivi(txtPrH, Stampa.FoglioH);
    }
    if (!chkCentro.Value()) {
        if (Stampa.MargineX + Stampa.StampaW > Stampa.FoglioW)
            Scrivi(txtPrX, Stampa.FoglioW - Stampa.StampaW);
        if (Stampa.MargineY + Stampa.StampaH > Stampa.FoglioH)
            Scrivi(txtPrY, Stampa.FoglioH - Stampa.StampaH);
    }
    AggiornaAnteprima();
}

void FrmStampa::ApplicaScala()
{
    if (txtScala.Text().isEmpty())
        return;
    const float scala = ToSingle(txtScala.Text());
    if (scala <= 0)
        return;
    const double rapporto = Stampa.Rapporto;
    double larghezza =
        std::min<double>(static_cast<double>(Stampa.LarghezzaOrigine) / scala, MisuraMassima);
    double altezza = larghezza / rapporto;
    if (altezza > MisuraMassima) {
        altezza = MisuraMassima;
        larghezza = rapporto * MisuraMassima;
    }
    Scrivi(txtPrW, larghezza);
    Scrivi(txtPrH, altezza);
    DoEvents();
}

void FrmStampa::TastoScala()
{
    try {
        ApplicaScala();
    } catch (const RunTimeError &errore) {
        if (errore.Number() != TypeMismatch)
            ErroreStampa(QStringLiteral("txtScala"), errore.Text());
    }
    AnteprimaSeGrande();
}
