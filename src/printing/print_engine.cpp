#include "printing/print_engine.h"

#include "language/language.h"
#include "platform/base/errors.h"
#include "platform/controls/picture.h"
#include "platform/host/host.h"
#include "printing/print_pages.h"

using namespace platform;

namespace {

// What the driver is told to heed, whatever it reported itself.
constexpr uint32_t CampiUsati = 0x08002D0B;

void CopiaDevModeIn(DeviceMode &buffer)
{
    Stampa.DevMode.Fields = CampiUsati;
    buffer = Stampa.DevMode;
}

void PuntatoreDellaFinestra(MousePointer puntatore)
{
    if (Form *finestra = Form::Find(QStringLiteral("frmStampa")))
        finestra->SetMousePointer(puntatore);
}

struct Rettangolo {
    int32_t X;
    int32_t Y;
    int32_t W;
    int32_t H;

    void Rimpicciolisci(int32_t spazio, int32_t bordo)
    {
        const float k = static_cast<float>(spazio) / static_cast<float>(bordo);
        for (int32_t *numero : {&X, &Y, &W, &H})
            *numero = RoundToLong(double{k} * *numero);
    }
};

BoxAnswer ChiediSeRimpicciolire()
{
    const QString testo = MLSTesto(QStringLiteral("0093")) + QLatin1Char('\n') +
                          MLSTesto(QStringLiteral("0094")) + QLatin1Char('\n') +
                          MLSTesto(QStringLiteral("0095")) + QStringLiteral("\n\n") +
                          MLSTesto(QStringLiteral("0096"));
    return host().MessageBox({.Text = testo,
                              .Title = MLSTesto(QStringLiteral("0097")),
                              .Icon = BoxIcon::Question,
                              .Buttons = BoxButtons::YesNoCancel});
}

void FineStampa()
{
    Stampa.hDCStampante.reset();
    PuntatoreDellaFinestra(MousePointer::Default);
}

// Pixels per millimetre; none on a sheet that is gone, so that the box of the missing device
// follows.
float PixelPerMillimetro(DeviceCapability pixel, int32_t millimetri)
{
    if (!Stampa.hDCStampante || millimetri == 0)
        return 0;
    return static_cast<float>(Stampa.hDCStampante->Capability(pixel)) /
           static_cast<float>(millimetri);
}

void StampaNelRettangolo(const OggettoDaStampare &oggetto, const Rettangolo &millimetri,
                         int32_t larghezzaFoglio, int32_t altezzaFoglio)
{
    const double dx = PixelPerMillimetro(DeviceCapability::HorzRes, larghezzaFoglio);
    const double dy = PixelPerMillimetro(DeviceCapability::VertRes, altezzaFoglio);
    const DeviceRectangle pixel{RoundToLong(dx * millimetri.X), RoundToLong(dy * millimetri.Y),
                                RoundToLong(dx * millimetri.W), RoundToLong(dy * millimetri.H)};
    if (std::holds_alternative<Form *>(oggetto)) {
        Print_Form(pixel);
        return;
    }
    auto *const *controllo = std::get_if<Control *>(&oggetto);
    auto *figura = controllo == nullptr ? nullptr : dynamic_cast<PictureBox *>(*controllo);
    if (figura != nullptr)
        Print_PictureBox(*figura, pixel);
}

} // namespace

QString GetDefPrinterName()
{
    QString nome = host().Printers().DefaultPrinter();
    if (nome.isEmpty())
        ErroreStampa(QStringLiteral("GetDefPrinterName"),
                     QStringLiteral("Stampante di default non specificata."));
    return nome;
}

bool OpenDocPrinter(QString &nome)
{
    Printing &stampanti = host().Printers();
    if (Stampa.hStampante != 0)
        stampanti.ClosePrinter(Stampa.hStampante);
    if (nome.isEmpty())
        nome = GetDefPrinterName();
    if (nome.isEmpty())
        return false;
    Stampa.hStampante = stampanti.OpenPrinter(nome);
    if (Stampa.hStampante == 0) {
        ErroreStampa(QStringLiteral("OpenDocPrinter"),
                     MLSTesto(QStringLiteral("0098")) + QLatin1Char('\n'));
        return false;
    }
    Stampa.BufferUscita = {};
    CopiaDevModeIn(Stampa.BufferIngresso);
    stampanti.JudgeMode(Stampa.hStampante, nome, Stampa.BufferIngresso, Stampa.BufferUscita);
    Stampa.DevMode = Stampa.BufferUscita;
    return true;
}

bool ImpostaDevMode(const QString &nome)
{
    if (Stampa.hStampante == 0)
        return false;
    CopiaDevModeIn(Stampa.BufferIngresso);
    const int esito = host().Printers().JudgeMode(Stampa.hStampante, nome, Stampa.BufferIngresso,
                                                  Stampa.BufferUscita);
    Stampa.DevMode = Stampa.BufferUscita;
    return esito >= 0;
}

void ProprietaStampante(Form &finestra, const QString &nome)
{
    constexpr int Confermato = 1;
    if (Stampa.hStampante == 0)
        return;
    CopiaDevModeIn(Stampa.BufferIngresso);
    if (host().Printers().AskMode(finestra, Stampa.hStampante, nome, Stampa.BufferIngresso,
                                  Stampa.BufferUscita) == Confermato)
        Stampa.DevMode = Stampa.BufferUscita;
}

bool LeggiFoglio(const QString &nome, int32_t &larghezza, int32_t &altezza, int32_t &orientamento)
{
    if (nome.isEmpty()) {
        larghezza = altezza = orientamento = -1;
        return false;
    }
    const auto foglio = host().Printers().CreateDevice(nome, Stampa.BufferUscita);
    larghezza = foglio ? foglio->Capability(DeviceCapability::HorzSize) : 0;
    altezza = foglio ? foglio->Capability(DeviceCapability::VertSize) : 0;
    orientamento = Stampa.DevMode.Orientation;
    return foglio != nullptr;
}

bool CreaDCStampante(const QString &nome, const QString &titolo)
{
    CopiaDevModeIn(Stampa.BufferUscita);
    Stampa.hDCStampante = host().Printers().CreateDevice(nome, Stampa.BufferUscita);
    Stampa.NomeDocumento = titolo;
    return Stampa.hDCStampante != nullptr;
}

void FoglioStampa(int32_t &larghezza, int32_t &altezza, std::optional<double> orientamento)
{
    larghezza = altezza = -1;
    if (!OpenDocPrinter(Stampa.NomeStampante))
        return;
    if (orientamento) {
        if (*orientamento != 1 && *orientamento != 2) {
            ErroreStampa(QStringLiteral("FoglioStampa"), QStringLiteral("Orientamento errato"));
            return;
        }
        Stampa.DevMode.Orientation = static_cast<int16_t>(*orientamento);
        ImpostaDevMode(Stampa.NomeStampante);
    }
    int32_t ignorato = 0;
    LeggiFoglio(Stampa.NomeStampante, larghezza, altezza, ignorato);
}

bool StampaOggetto(const OggettoDaStampare &oggetto, int32_t x, int32_t y, int32_t w, int32_t h,
                   const QString &titolo)
{
    PuntatoreDellaFinestra(MousePointer::Hourglass);
    // Another printer chosen in the dialog changes the record and the sheet that is shown, not the
    // device: meant.
    CreaDCStampante(Stampa.NomeStampante, titolo);
    int32_t larghezzaFoglio = 0;
    int32_t altezzaFoglio = 0;
    int32_t ignorato = 0;
    LeggiFoglio(Stampa.NomeStampante, larghezzaFoglio, altezzaFoglio, ignorato);

    Rettangolo area{x, y, w, h};
    const int32_t destra = area.X + area.W;
    int32_t fondo = area.Y + area.H;
    if (destra > larghezzaFoglio || fondo > altezzaFoglio) {
        const BoxAnswer risposta = ChiediSeRimpicciolire();
        if (risposta == BoxAnswer::Cancel) {
            FineStampa();
            return false;
        }
        if (risposta == BoxAnswer::Yes) {
            if (destra > larghezzaFoglio) {
                area.Rimpicciolisci(larghezzaFoglio, destra);
                fondo = area.Y + area.H;
            }
            // The right edge is not looked at again: meant.
            if (fondo > altezzaFoglio)
                area.Rimpicciolisci(altezzaFoglio, fondo);
        }
    }
    StampaNelRettangolo(oggetto, area, larghezzaFoglio, altezzaFoglio);
    FineStampa();
    return true;
}
