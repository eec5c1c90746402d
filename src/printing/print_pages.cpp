#include "printing/print_pages.h"

#include "language/language.h"
#include "platform/base/errors.h"
#include "platform/host/host.h"
#include "printing/print_fields.h"

#include <functional>

using namespace platform;

namespace {

// Shows an error of one statement and goes on behind it.
void ConGestore(const QString &routine, const std::function<void()> &istruzione)
{
    try {
        istruzione();
    } catch (const RunTimeError &errore) {
        ErroreStampa(routine, QStringLiteral("La funzione di Stampa\nha trovato una situazione "
                                             "imprevista.\n\nCodice di errore = %1\n%2")
                                  .arg(errore.Number())
                                  .arg(errore.Text()));
    }
}

void NessunSupportoDib()
{
    host().MessageBox({.Text = QStringLiteral("This device does not support DIB's"),
                       .Title = QStringLiteral(" No DIB support"),
                       .Icon = BoxIcon::Critical});
}

void FormatoSconosciuto(const QString &routine, const QString &chiave)
{
    ErroreStampa(routine, QStringLiteral("Formato grafico sconosciuto.\n\n") + MLSTesto(chiave));
}

QString Righe(const QString &inizio, const QList<int> &esiti)
{
    QString testo = inizio;
    for (qsizetype i = 0; i < esiti.size(); ++i)
        testo += QStringLiteral("\nR%1 = %2").arg(i + 1).arg(esiti.at(i));
    return testo;
}

// A handle as it is shown: only whether there is one tells anything.
int Numero(bool presente)
{
    return presente ? 1 : 0;
}

// Results of the four steps of one copy; 0 for a step that was not taken.
struct Esiti {
    int Pagina = 0;
    int Bitmap = 0;
    int FinePagina = 0;
    int FineDocumento = 0;
};

// One document of one page. False when the document could not be started.
bool StampaCopia(const QString &routine, const DeviceRectangle &area, const Bitmap &immagine,
                 Esiti &esiti)
{
    PrintDevice &stampante = *Stampa.hDCStampante;
    int documento = 0;
    ConGestore(routine, [&] { documento = stampante.StartDocument(Stampa.NomeDocumento); });
    if (documento == -1) {
        ErroreStampa(routine, QStringLiteral("Errore di StartDoc"));
        return false;
    }
    ConGestore(routine, [&] { esiti.Pagina = stampante.StartPage(); });
    ConGestore(routine, [&] { esiti.Bitmap = stampante.StretchBitmap(area, immagine); });
    ConGestore(routine, [&] { esiti.FinePagina = stampante.EndPage(); });
    if (esiti.FinePagina > 0)
        ConGestore(routine, [&] { esiti.FineDocumento = stampante.EndDocument(); });
    return true;
}

} // namespace

bool Legge_Form(Form &finestra)
{
    const QString routine = QStringLiteral("Legge_Form");
    Printing &stampanti = host().Printers();
    const auto sorgente = stampanti.SourceOfWindow(finestra);
    if (!sorgente->GivesBits()) {
        NessunSupportoDib();
        return false;
    }
    Stampa.LarghezzaImmagine = sorgente->Width();
    Stampa.AltezzaImmagine = sorgente->Height();
    Stampa.InfoImmagine = {.Width = sorgente->Width(),
                           .Height = sorgente->Height(),
                           .Planes = 1,
                           .BitsPerPixel = sorgente->Planes() * sorgente->BitsPerPixel(),
                           .Bits = {}};
    const qsizetype byte =
        BytesOfBitmap(Stampa.InfoImmagine.BitsPerPixel, sorgente->Width(), sorgente->Height());
    if (byte == 0) {
        FormatoSconosciuto(routine, QStringLiteral("0099"));
        return false;
    }
    Stampa.MemoriaImmagine = stampanti.Allocate(byte);
    if (sorgente->Context() == 0 || sorgente->Copy() == 0 || !Stampa.MemoriaImmagine) {
        ErroreStampa(routine, QStringLiteral("hDC_FSrc = %1\nhBmp_Form = %2\nhMem = %3")
                                  .arg(sorgente->Context())
                                  .arg(sorgente->Copy())
                                  .arg(Numero(Stampa.MemoriaImmagine != nullptr)));
        return false;
    }
    Stampa.InfoImmagine.Bits = Stampa.MemoriaImmagine;
    const int righe = sorgente->ReadRows(Stampa.InfoImmagine);
    if (righe == 0) {
        ErroreStampa(routine, QStringLiteral("Unable to read the Form.\nR2 = %1").arg(righe));
        return false;
    }
    return true;
}

bool Print_Form(const DeviceRectangle &area)
{
    const QString routine = QStringLiteral("Print_Form");
    bool stampato = true;
    if (!Stampa.hDCStampante) {
        ErroreStampa(routine, QStringLiteral("prhDC = 0"));
        stampato = false;
    }
    for (int32_t copia = 1; stampato && copia <= Stampa.NumeroCopie; ++copia) {
        Esiti esiti;
        stampato = StampaCopia(routine, area, Stampa.InfoImmagine, esiti);
        if (stampato && (esiti.Pagina < 1 || esiti.Bitmap == 0 || esiti.FinePagina < 1 ||
                         esiti.FineDocumento == 0)) {
            ErroreStampa(routine, Righe(QStringLiteral("Il Form non viene stampato."),
                                        {esiti.Pagina, esiti.Bitmap, esiti.FinePagina,
                                         esiti.FineDocumento}));
            stampato = false;
        }
    }
    Stampa.InfoImmagine.Bits.reset();
    Stampa.MemoriaImmagine.reset();
    return stampato;
}

bool Print_PictureBox(PictureBox &figura, const DeviceRectangle &area)
{
    const QString routine = QStringLiteral("Print_PictureBox");
    Printing &stampanti = host().Printers();
    const auto sorgente = stampanti.SourceOfPicture(figura);
    if (!sorgente->GivesBits()) {
        NessunSupportoDib();
        return false;
    }
    Bitmap immagine{.Width = sorgente->Width(),
                    .Height = sorgente->Height(),
                    .Planes = sorgente->Planes(),
                    .BitsPerPixel = sorgente->BitsPerPixel(),
                    .Bits = {}};
    const qsizetype byte = BytesOfBitmap(immagine.BitsPerPixel, immagine.Width, immagine.Height);
    if (byte == 0) {
        FormatoSconosciuto(routine, QStringLiteral("0100"));
        return false;
    }
    immagine.Bits = stampanti.Allocate(byte);
    if (!Stampa.hDCStampante || !immagine.Bits) {
        ErroreStampa(routine, QStringLiteral("prhDC = %1\nhMem = %2")
                                  .arg(Numero(Stampa.hDCStampante != nullptr))
                                  .arg(Numero(immagine.Bits != nullptr)));
        return false;
    }
    int righe = 0;
    ConGestore(routine, [&] { righe = sorgente->ReadRows(immagine); });
    for (int32_t copia = 1; copia <= Stampa.NumeroCopie; ++copia) {
        Esiti esiti;
        if (!StampaCopia(routine, area, immagine, esiti))
            return false;
        // Only noughts count here, unlike with a window: meant.
        if (righe < 1 || esiti.Pagina == 0 || esiti.Bitmap == 0 || esiti.FinePagina == 0 ||
            esiti.FineDocumento == 0) {
            ErroreStampa(routine, Righe(QStringLiteral("Il PictureBox non viene stampato."),
                                        {righe, esiti.Pagina, esiti.Bitmap, esiti.FinePagina,
                                         esiti.FineDocumento}));
            return false;
        }
    }
    return true;
}
