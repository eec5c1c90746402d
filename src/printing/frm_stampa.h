// The page set-up dialog: a small picture of the sheet with the image laid on it, printer, margins,
// printed size in millimetres, copies.
#pragma once

#include "platform/controls/button.h"
#include "platform/controls/check_box.h"
#include "platform/controls/combo_box.h"
#include "platform/controls/drawing_box.h"
#include "platform/controls/form.h"
#include "platform/controls/frame.h"
#include "platform/controls/label.h"
#include "platform/controls/picture.h"
#include "platform/controls/shape.h"
#include "platform/controls/text_box.h"
#include "platform/controls/timer.h"
#include "platform/controls/up_down.h"

class FrmStampa : public platform::Form {
public:
    FrmStampa();

    platform::Frame Frame1;
    platform::Label Label1;
    platform::ComboBox cboPrinterNames;
    platform::Button cmdProprieta;
    platform::Image imgPrinter;

    platform::Frame Frame2;
    platform::Label Label3;
    platform::Label lblFgW;
    platform::Label Label5;
    platform::Label Label4;
    platform::Label lblFgH;
    platform::Label Label6;
    platform::Label lblFuoriFoglio;
    platform::Shape shpFoglio;
    platform::Shape shpBordo;
    platform::DrawingBox picPreview;
    platform::Label lblStampaInCorso;
    platform::Timer Timer1;

    platform::Frame Frame3;
    platform::Label Label7;
    platform::TextBox txtPrX;
    platform::UpDown updPrX;
    platform::Label Label9;
    platform::TextBox txtPrY;
    platform::UpDown updPrY;
    platform::Button cmdOrigine;
    platform::CheckBox chkCentro;

    platform::Frame Frame4;
    platform::Label Label8;
    platform::TextBox txtPrW;
    platform::UpDown updPrW;
    platform::Label Label10;
    platform::TextBox txtPrH;
    platform::UpDown updPrH;
    platform::Button cmdMax;
    platform::CheckBox chkProporzioni;

    platform::Label lblLblNCopie;
    platform::TextBox txtNCopies;
    platform::UpDown updNCopies;
    // Hidden, and working all the same.
    platform::Label lblLblScala;
    platform::Label lblPScala;
    platform::TextBox txtScala;
    platform::Button cmdScalaOK;

    platform::Button cmdStampa;
    platform::Button cmdOK;
    platform::Button cmdChiudi;

private:
    static constexpr double TwipPerPixel = 15;
    static constexpr int MisuraMassima = 2000;    // millimetres, of margins and sizes
    static constexpr platform::Color Rosso = 255; // of the warning

    void Disegna();
    void CollegaCampi();
    void CollegaPulsanti();

    void Attiva();
    void ScegliStampante();
    void LeggiFoglioScelto();
    void DisegnaFoglio();
    void AggiornaAnteprima();
    bool AnteprimaForm(const platform::DeviceRectangle &area);
    bool AnteprimaPictureBox(const platform::DeviceRectangle &area);
    void AnteprimaSeGrande();
    void Lampeggia();

    void CambiaLarghezza();
    void CambiaAltezza();
    void AltezzaDallaLarghezza();
    void LarghezzaDallAltezza();
    void CambiaCentro();
    void CambiaProporzioni();
    void PortaAlMassimo();
    void ApplicaScala();
    void TastoScala();

    void Proprieta();
    void StampaOra();
    void Conferma();
    void Chiudi();
    void SalvaAnteprima();

    // Twips, from the design.
    int32_t PosFoglioX = 0;
    int32_t PosFoglioY = 0;
    int32_t PosBordoX = 0;
    int32_t PosBordoY = 0;
    int32_t PosAnteprimaX = 0;
    int32_t PosAnteprimaY = 0;
};
