#include "printing/stampa_fpb.h"

#include "language/language.h"
#include "platform/base/errors.h"
#include "platform/controls/picture.h"
#include "platform/files/files.h"
#include "platform/files/temporary_file.h"
#include "printing/frm_stampa.h"
#include "printing/print_engine.h"
#include "printing/print_pages.h"

using namespace platform;

namespace {

const QString Routine = QStringLiteral("StampaFPB");

PictureBox *FiguraDi(const OggettoDaStampare &oggetto)
{
    auto *const *controllo = std::get_if<Control *>(&oggetto);
    if (controllo == nullptr || dynamic_cast<Image *>(*controllo) != nullptr)
        return nullptr;
    return dynamic_cast<PictureBox *>(*controllo);
}

Form *FinestraDi(const OggettoDaStampare &oggetto)
{
    auto *const *finestra = std::get_if<Form *>(&oggetto);
    return finestra == nullptr ? nullptr : *finestra;
}

void OggettoErrato(const OggettoDaStampare &oggetto)
{
    QString testo;
    auto *const *controllo = std::get_if<Control *>(&oggetto);
    if (controllo != nullptr && *controllo != nullptr)
        testo = QStringLiteral("Stampa di ") + (*controllo)->Name() + QStringLiteral("\n\n");
    ErroreStampa(Routine, testo + QStringLiteral("L' oggetto da stampare\ne' di tipo errato."));
}

bool EsisteFileTemporaneo(const QString &percorso)
{
    return Skipping([&] { FileLength(percorso); }) == 0;
}

// What was drawn on the box becomes a bitmap, which is what will be printed.
void FissaFigura(PictureBox &figura)
{
    const QString file = MakeTemporaryFile(QStringLiteral("Fra"));
    figura.SaveImage(file);
    figura.LoadPicture({});
    figura.LoadPicture(file);
    if (EsisteFileTemporaneo(file))
        RemoveTemporaryFile(file);
}

bool ArgomentiValidi(const RichiestaStampa &richiesta)
{
    Stampa.OggettoValido =
        FinestraDi(richiesta.Oggetto) != nullptr || FiguraDi(richiesta.Oggetto) != nullptr;
    if (!Stampa.OggettoValido) {
        OggettoErrato(richiesta.Oggetto);
        return false;
    }
    if (!richiesta.H) {
        ErroreStampa(Routine, QStringLiteral("Parametri errati."));
        return false;
    }
    return true;
}

// False when the window cannot be read.
bool PrendiOggetto(const RichiestaStampa &richiesta, FrmStampa &dialogo)
{
    Form *finestra = FinestraDi(richiesta.Oggetto);
    PictureBox *figura = FiguraDi(richiesta.Oggetto);
    Stampa.OggettoStampa = richiesta.Oggetto;
    Stampa.LarghezzaOrigine =
        richiesta.Scala
            ? static_cast<float>(*richiesta.Scala * richiesta.W)
            : static_cast<float>(finestra != nullptr ? finestra->ScaleWidth() : figura->Width());
    dialogo.txtPrX.SetText(QString::number(richiesta.X));
    MLSCaricaForm(dialogo);
    dialogo.txtPrY.SetText(QString::number(richiesta.Y));
    dialogo.txtPrW.SetText(QString::number(richiesta.W));
    dialogo.txtPrH.SetText(QString::number(*richiesta.H));
    if (*richiesta.H == 0)
        throw RunTimeError(DivisionByZero);
    Stampa.Rapporto = static_cast<float>(richiesta.W / *richiesta.H);
    if (finestra != nullptr && !Legge_Form(*finestra)) {
        ErroreStampa(Routine, QStringLiteral("Si e' verificata una condizione\ninaspettata "
                                             "elaborando l' immagine."));
        return false;
    }
    if (figura != nullptr)
        FissaFigura(*figura);
    Stampa.TitoloStampa =
        richiesta.Titolo.value_or(finestra != nullptr ? finestra->Name() : figura->Name());
    return true;
}

} // namespace

void StampaFPB(const RichiestaStampa &richiesta)
{
    RicominciaStampa();
    if (Stampa.NomeStampante.isEmpty() && !OpenDocPrinter(Stampa.NomeStampante))
        return;
    const bool conOggetto = !std::holds_alternative<std::monostate>(richiesta.Oggetto);
    Stampa.OggettoValido = false;
    if (conOggetto && !ArgomentiValidi(richiesta))
        return;
    auto *dialogo = new FrmStampa;
    try {
        if (conOggetto && !PrendiOggetto(richiesta, *dialogo)) {
            dialogo->Drop();
            return;
        }
        Stampa.OrientamentoRichiesto = RoundToLong(richiesta.Orientamento.value_or(0));
        DoEvents();
    } catch (const RunTimeError &) {
        dialogo->Drop();
        throw;
    }
    dialogo->ShowModal();
    Stampa.OggettoStampa = {};
}
