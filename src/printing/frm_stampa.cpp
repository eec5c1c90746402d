// The dialog's design, its opening and its buttons; sheet and fields stand in files of their own.
#include "printing/frm_stampa.h"

#include "platform/base/errors.h"
#include "platform/host/host.h"
#include "printing/print_engine.h"
#include "printing/print_fields.h"

#include <algorithm>
#include <limits>

using namespace platform;

namespace {

constexpr double Larghezza = 5640; // twips
constexpr double Altezza = 6615;
constexpr int Lampeggio = 500; // ms
constexpr double PuntiTesto = 8.25;
constexpr double PuntiAvviso = 7.5; // three words on three lines
constexpr Color Giallo = 0x0000FFFF;
constexpr Color Bianco = 0x00FFFFFF;
constexpr int CopieMassime = 100; // by the arrows
constexpr int MisuraMinima = 2;   // millimetres, by the arrows

} // namespace

FrmStampa::FrmStampa()
    : Form("frmStampa", Larghezza, Altezza),
      Frame1({*this, "Frame1"}, {120, 120, 5295, 1095}, QStringLiteral("Stampante")),
      Label1(Frame1.Inside("Label1"), {120, 540, 615, 315}, QStringLiteral("Nome:")),
      cboPrinterNames(Frame1.Inside("cboPrinterNames"), {720, 480, 3255, 315}),
      cmdProprieta(Frame1.Inside("cmdProprieta"), {4080, 480, 1095, 315},
                   QStringLiteral("&Proprieta'")),
      imgPrinter({*this, "imgPrinter"}, {4335, 2640, 825, 825}, QStringLiteral("stampante")),

      Frame2({*this, "Frame2"}, {120, 1320, 3735, 2415}, QStringLiteral("Foglio")),
      Label3(Frame2.Inside("Label3"), {120, 360, 1335, 225}, QStringLiteral("Larghezza:")),
      lblFgW(Frame2.Inside("lblFgW"), {120, 600, 855, 225}, {}, Alignment::Right),
      Label5(Frame2.Inside("Label5"), {1080, 600, 435, 225}, QStringLiteral("[mm]")),
      Label4(Frame2.Inside("Label4"), {120, 1080, 1335, 225}, QStringLiteral("Altezza:")),
      lblFgH(Frame2.Inside("lblFgH"), {120, 1320, 855, 225}, {}, Alignment::Right),
      Label6(Frame2.Inside("Label6"), {1080, 1320, 435, 225}, QStringLiteral("[mm]")),
      lblFuoriFoglio(Frame2.Inside("lblFuoriFoglio"), {120, 1800, 855, 495},
                     QStringLiteral("Stampa fuori foglio"), Alignment::Center),
      shpFoglio(Frame2.Inside("shpFoglio"), {1560, 240, 2055, 2055}),
      shpBordo(Frame2.Inside("shpBordo"), {1665, 345, 1845, 1845}),
      picPreview(Frame2.Inside("picPreview"), {1680, 360, 1815, 1815}),
      lblStampaInCorso(picPreview.Inside("lblStampaInCorso"), {360, 600, 1095, 495},
                       QStringLiteral("Stampa in corso..."), Alignment::Center),
      Timer1({*this, "Timer1"}, Lampeggio),

      Frame3({*this, "Frame3"}, {120, 3840, 2535, 1695}, QStringLiteral("Margini Stampa [mm]")),
      Label7(Frame3.Inside("Label7"), {120, 360, 780, 285}, QStringLiteral("Sinistro:"),
             Alignment::Right),
      txtPrX(Frame3.Inside("txtPrX"), {960, 360, 705, 285}),
      updPrX(Frame3.Inside("updPrX"), {1665, 360, 270, 285}, txtPrX, -MisuraMassima, MisuraMassima),
      Label9(Frame3.Inside("Label9"), {0, 840, 900, 285}, QStringLiteral("Superiore:"),
             Alignment::Right),
      txtPrY(Frame3.Inside("txtPrY"), {960, 840, 705, 285}),
      updPrY(Frame3.Inside("updPrY"), {1680, 840, 240, 285}, txtPrY, -MisuraMassima, MisuraMassima),
      cmdOrigine(Frame3.Inside("cmdOrigine"), {2040, 360, 255, 795}, QStringLiteral("&0 / 0")),
      chkCentro(Frame3.Inside("chkCentro"), {240, 1320, 1575, 255},
                QStringLiteral("Stampa &al centro")),

      Frame4({*this, "Frame4"}, {2880, 3840, 2535, 1695}, QStringLiteral("Dimensioni Stampa [mm]")),
      Label8(Frame4.Inside("Label8"), {0, 360, 900, 285}, QStringLiteral("Larghezza:"),
             Alignment::Right),
      txtPrW(Frame4.Inside("txtPrW"), {960, 360, 705, 285}),
      updPrW(Frame4.Inside("updPrW"), {1666, 360, 270, 285}, txtPrW, MisuraMinima, MisuraMassima),
      Label10(Frame4.Inside("Label10"), {240, 840, 660, 285}, QStringLiteral("Altezza:"),
              Alignment::Right),
      txtPrH(Frame4.Inside("txtPrH"), {960, 840, 705, 285}),
      updPrH(Frame4.Inside("updPrH"), {1680, 840, 240, 285}, txtPrH, MisuraMinima, MisuraMassima),
      cmdMax(Frame4.Inside("cmdMax"), {2040, 360, 255, 795}, QStringLiteral("M a &x")),
      chkProporzioni(Frame4.Inside("chkProporzioni"), {240, 1320, 1815, 255},
                     QStringLiteral("&Mantieni proporzioni")),

      lblLblNCopie({*this, "lblLblNCopie"}, {4200, 2580, 1095, 255},
                   QStringLiteral("N. di copie:")),
      txtNCopies({*this, "txtNCopies"}, {4200, 2810, 945, 285}),
      updNCopies({*this, "updNCopies"}, {5160, 2805, 240, 285}, txtNCopies, 1, CopieMassime),
      lblLblScala({*this, "lblLblScala"}, {4200, 3210, 1095, 225}, QStringLiteral("Scala:")),
      lblPScala({*this, "lblPScala"}, {3840, 3480, 360, 225}, QStringLiteral("1 :  ")),
      txtScala({*this, "txtScala"}, {4200, 3450, 945, 285}),
      cmdScalaOK({*this, "cmdScalaOK"}, {5146, 3450, 270, 285}),

      cmdStampa({*this, "cmdStampa"}, {4080, 1920, 1335, 495}, QStringLiteral("&Stampa")),
      cmdOK({*this, "cmdOK"}, {4080, 1920, 1335, 435}, QStringLiteral("&OK")),
      cmdChiudi({*this, "cmdChiudi"}, {3480, 5760, 1935, 555}, QStringLiteral("&Chiudi"))
{
    Disegna();
    CollegaCampi();
    CollegaPulsanti();
}

void FrmStampa::Disegna()
{
    SetCaption(QStringLiteral("Stampa"));
    for (Control *controllo : Controls())
        if (auto *visibile = dynamic_cast<VisualControl *>(controllo))
            visibile->SetFontSize(PuntiTesto);
    for (Label *etichetta : {&Label1, &Label3, &lblFgW, &Label5, &Label4, &lblFgH, &Label6, &Label7,
                             &Label9, &Label8, &Label10, &lblLblNCopie, &lblLblScala, &lblPScala})
        etichetta->SetTransparent(true);
    lblFuoriFoglio.SetFontSize(PuntiAvviso);
    lblFuoriFoglio.SetBackColor(Rosso);
    lblFuoriFoglio.SetForeColor(Bianco);
    lblFuoriFoglio.SetFontBold(true);
    lblFuoriFoglio.SetVisible(false);
    lblStampaInCorso.SetBackColor(Giallo);
    lblStampaInCorso.SetVisible(false);
    shpFoglio.SetBackColor(Bianco);
    shpFoglio.SetFilled(true);
    picPreview.SetBackColor(Bianco);
    cmdOrigine.SetToolTipText(QStringLiteral("Imposta i margini a 0"));
    cmdMax.SetToolTipText(QStringLiteral("Usa tutto il foglio"));
    txtScala.SetToolTipText(QStringLiteral("Nuovo valore + Invio"));
    cmdScalaOK.SetPicture(QStringLiteral("avanti"));
    cmdScalaOK.SetSpokenName(QStringLiteral("Applica la scala"));
    imgPrinter.SetSpokenName(QStringLiteral("Una stampante"));
    cboPrinterNames.SetSpokenName(QStringLiteral("Stampante"));
    picPreview.SetSpokenName(QStringLiteral("Anteprima del foglio"));
    txtPrX.SetSpokenName(QStringLiteral("Margine sinistro in millimetri"));
    txtPrY.SetSpokenName(QStringLiteral("Margine superiore in millimetri"));
    txtPrW.SetSpokenName(QStringLiteral("Larghezza della stampa in millimetri"));
    txtPrH.SetSpokenName(QStringLiteral("Altezza della stampa in millimetri"));
    txtNCopies.SetSpokenName(QStringLiteral("Numero di copie"));
    txtScala.SetSpokenName(QStringLiteral("Scala: 1 a"));
    updPrX.SetSpokenName(
        QStringLiteral("Aumenta il margine sinistro / Riduci il margine sinistro"));
    updPrY.SetSpokenName(
        QStringLiteral("Aumenta il margine superiore / Riduci il margine superiore"));
    updPrW.SetSpokenName(QStringLiteral("Aumenta la larghezza / Riduci la larghezza"));
    updPrH.SetSpokenName(QStringLiteral("Aumenta l'altezza / Riduci l'altezza"));
    updNCopies.SetSpokenName(QStringLiteral("Una copia in più / Una copia in meno"));
    for (TextBox *campo : {&txtPrX, &txtPrY, &txtPrW, &txtPrH, &txtNCopies, &txtScala})
        campo->SetBackColor(SystemWindow);
    for (Button *pulsante : {&cmdProprieta, &cmdOrigine, &cmdMax, &cmdStampa, &cmdOK, &cmdChiudi})
        pulsante->SetTabStop(true);
    cboPrinterNames.SetTabStop(true);
    cmdStampa.SetFontBold(true);
    cmdOK.SetFontBold(true);
    // The narrow buttons hold one letter a line.
    cmdOrigine.SetFontSize(8);
    cmdMax.SetFontSize(8);
    for (VisualControl *nascosto :
         std::initializer_list<VisualControl *>{&lblLblScala, &lblPScala, &txtScala, &cmdScalaOK})
        nascosto->SetVisible(false);
    chkProporzioni.SetValue(true);
}

void FrmStampa::CollegaPulsanti()
{
    OnActivate = [this] { Attiva(); };
    Timer1.OnTimer = [this] { Lampeggia(); };
    Label1.OnDblClick = [this] { SalvaAnteprima(); };
    cboPrinterNames.OnClick = [this] { ScegliStampante(); };
    cmdProprieta.OnClick = [this] { Proprieta(); };
    cmdStampa.OnClick = [this] { StampaOra(); };
    cmdOK.OnClick = [this] { Conferma(); };
    cmdChiudi.OnClick = [this] { Chiudi(); };
}

void FrmStampa::Attiva()
{
    if (Stampa.OggettoValido) {
        cmdOK.SetVisible(false);
        imgPrinter.SetVisible(false);
    } else {
        for (VisualControl *nascosto : std::initializer_list<VisualControl *>{
                 &cmdStampa, &lblLblScala, &lblPScala, &txtScala, &cmdScalaOK, &lblLblNCopie,
                 &txtNCopies, &updNCopies})
            nascosto->SetVisible(false);
    }
    Move((ScreenWidth() - Width()) / 2, (ScreenHeight() - Height()) / 2, Width(), Height());
    PosFoglioX = RoundToLong(shpFoglio.Left());
    PosFoglioY = RoundToLong(shpFoglio.Top());
    PosBordoX = RoundToLong(TwipPerPixel * 3 + PosFoglioX);
    PosBordoY = RoundToLong(TwipPerPixel * 3 + PosFoglioY);
    PosAnteprimaX = RoundToLong(TwipPerPixel + PosBordoX);
    PosAnteprimaY = RoundToLong(TwipPerPixel + PosBordoY);
    Stampa.DevModeIniziale = Stampa.DevMode;
    if (Stampa.OrientamentoRichiesto == 1 || Stampa.OrientamentoRichiesto == 2)
        Stampa.DevMode.Orientation = static_cast<int16_t>(Stampa.OrientamentoRichiesto);
    int indice = 0;
    for (const QString &nome : host().Printers().Printers()) {
        cboPrinterNames.AddItem(nome);
        if (nome == Stampa.NomeStampante)
            indice = cboPrinterNames.ListCount() - 1;
    }
    // Without any printer the dialog stays as it is, and the print itself tells.
    if (cboPrinterNames.ListCount() > 0)
        cboPrinterNames.SetListIndex(indice);
    if (Unloaded())
        return;
    Stampa.CopieIniziali = Stampa.NumeroCopie;
    txtNCopies.SetText(QString::number(Stampa.NumeroCopie == 0 ? 1 : Stampa.NumeroCopie));
    SetCaption(Stampa.OggettoValido ? QStringLiteral("  Stampa morlena ") + Stampa.TitoloStampa
                                    : QStringLiteral("  Impostazioni stampante"));
    // The window may not be active yet: the button gets the keyboard when it is.
    (Stampa.OggettoValido ? cmdStampa : cmdOK).SetTakesFocus(true);
    cboPrinterNames.BringToFront();
}

void FrmStampa::ScegliStampante()
{
    Stampa.StampanteScelta = cboPrinterNames.Text();
    if (!OpenDocPrinter(Stampa.StampanteScelta))
        return;
    LeggiFoglioScelto();
    DisegnaFoglio();
}

void FrmStampa::LeggiFoglioScelto()
{
    int32_t orientamento = 0;
    LeggiFoglio(Stampa.StampanteScelta, Stampa.FoglioW, Stampa.FoglioH, orientamento);
}

void FrmStampa::Proprieta()
{
    const double copie =
        std::clamp<double>(LeadingNumber(txtNCopies.Text()), std::numeric_limits<int16_t>::min(),
                           std::numeric_limits<int16_t>::max());
    Stampa.DevMode.Copies = Integer16(RoundToLong(copie));
    ProprietaStampante(*this, Stampa.StampanteScelta);
    LeggiFoglioScelto();
    if (LeadingNumber(txtNCopies.Text()) != Stampa.DevMode.Copies)
        txtNCopies.SetText(QString::number(Stampa.DevMode.Copies));
    // The engine makes the copies by itself, and the driver must not multiply them.
    Stampa.DevMode.Copies = 1;
    DisegnaFoglio();
}

void FrmStampa::StampaOra()
{
    lblStampaInCorso.SetLeft((picPreview.ScaleWidth() * TwipPerPixel - lblStampaInCorso.Width()) /
                             2);
    lblStampaInCorso.SetTop((picPreview.ScaleHeight() * TwipPerPixel - lblStampaInCorso.Height()) /
                            2);
    lblStampaInCorso.SetVisible(true);
    DoEvents();
    // Cancelling leaves the dialog open and the label in sight: meant.
    if (StampaOggetto(Stampa.OggettoStampa, Stampa.MargineX, Stampa.MargineY, Stampa.StampaW,
                      Stampa.StampaH, Stampa.TitoloStampa))
        Unload();
}

void FrmStampa::Conferma()
{
    Stampa.NomeStampante = Stampa.StampanteScelta;
    Unload();
}

void FrmStampa::Chiudi()
{
    Stampa.NumeroCopie = Stampa.CopieIniziali;
    Stampa.DevMode = Stampa.DevModeIniziale;
    Stampa.InfoImmagine.Bits.reset();
    Stampa.MemoriaImmagine.reset();
    Unload();
}

void FrmStampa::SalvaAnteprima()
{
    try {
        picPreview.SaveImage(QStringLiteral("PicPrev.bmp"));
    } catch (const RunTimeError &errore) {
        ErroreStampa(QStringLiteral("Label1"), errore.Text());
    }
}
