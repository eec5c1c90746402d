#include "results/form_esercizi_eseguiti.h"

#include "core/profile.h"
#include "core/shared_state.h"
#include "core/start.h"
#include "core/windows.h"
#include "language/language.h"
#include "platform/base/errors.h"
#include "platform/host/host.h"
#include "platform/printing/printer_object.h"
#include "results/print_report.h"
#include "support/dialogs.h"
#include "support/full_screen.h"

#include <algorithm>

using namespace platform;

namespace {

constexpr double Larghezza = 9600; // twips
constexpr double Altezza = 6600;
constexpr Color Sfondo = 0x00C0E0FF;
constexpr int Colonne = 5;
constexpr double Scostamento = 2; // of the printed table, twips
// A report of 500 rows has some 40,000 bytes; nothing this program wrote is larger.
constexpr int64_t ByteDiUnResoconto = 4'000'000;

const QString TitoloRiquadri = QStringLiteral("Morlenekvt");

QString CartellaDati()
{
    return CartellaImpostazioni() + QStringLiteral("Dati\\");
}

void Errore(const char *chiave)
{
    host().MessageBox({.Text = MLSTesto(QString::fromLatin1(chiave)),
                       .Title = TitoloRiquadri,
                       .Icon = BoxIcon::Critical});
}

void CreaSeManca(const QString &cartella)
{
    if (!EsisteCartella(cartella))
        CreaCartella(cartella);
}

} // namespace

FormEserciziEseguiti::FormEserciziEseguiti()
    : Form("FormEserciziEseguiti", Larghezza, Altezza),
      Label1({*this, "Label1"}, {240, 180, 9120, 480}),
      Label2({*this, "Label2"}, {240, 690, 9120, 420}),
      MSFlexGrid1({*this, "MSFlexGrid1"}, {240, 1200, 9120, 4680}),
      Label3({*this, "Label3"}, {240, 6000, 9120, 420}),
      mnuFile({*this, "mnuFile"}, QStringLiteral("&File")),
      mnuSalva({*this, "mnuSalva"}, mnuFile, QStringLiteral("Salva")),
      mnuApri({*this, "mnuApri"}, mnuFile, QStringLiteral("Apri")),
      mnuStampa({*this, "mnuStampa"}, mnuFile, QStringLiteral("&Stampa")),
      mnuEsci({*this, "mnuEsci"}, QStringLiteral("&Esci"))
{
    SetCaption(QStringLiteral("MorleneKVT"));
    SetBackColor(Sfondo);
    for (Label *etichetta : {&Label1, &Label2, &Label3})
        etichetta->SetTransparent(true);
    Label1.SetFontSize(20);
    Label2.SetFontSize(14);
    Label3.SetFontSize(12);
    Label1.SetFontBold(true);
    Label2.SetFontBold(true);
    MSFlexGrid1.SetFontSize(11);
    MSFlexGrid1.SetSpokenName(QStringLiteral("Tabella degli esercizi eseguiti"));

    OnLoad = [this] { CaricaFinestra(*this); };
    OnResize = RidimensionaFinestra;
    OnActivate = [this] { Attiva(); };
    mnuSalva.OnClick = [this] { Salva(); };
    mnuApri.OnClick = [this] { Apri(); };
    mnuStampa.OnClick = [this] { StampaTabella(); };
    mnuEsci.OnClick = [this] {
        MostraFinestra(QStringLiteral("FormMenu"));
        Unload();
    };
}

void FormEserciziEseguiti::Attiva()
{
    Move(0, 0, ScreenWidth(), ScreenHeight());
    Label1.SetCaption(NomeUtente);
    Label2.SetCaption(MLSTesto(QStringLiteral("0074")) + host().Today());
    // Leaving the exercise of the log's last row counts one further than the log has rows.
    const int ultima = std::min<int>(NumeroEserciziEseguiti, RigheEserciziEseguiti - 1);
    PreparaTabella(ultima + 1);
    for (int riga = 1; riga <= ultima; ++riga) {
        MSFlexGrid1.SetTextMatrix(riga, 0, QString::number(riga));
        for (int colonna = 1; colonna < Colonne; ++colonna)
            MSFlexGrid1.SetTextMatrix(riga, colonna, EserciziEseguiti(riga, colonna - 1));
    }
    Label3.SetCaption({});
}

void FormEserciziEseguiti::PreparaTabella(int righe)
{
    MSFlexGrid1.SetCols(Colonne);
    const int parte = static_cast<int>(MSFlexGrid1.Width()) / 24;
    for (int colonna = 0; colonna < Colonne; ++colonna) {
        MSFlexGrid1.SetColAlignment(colonna, colonna < 3 ? CellAlignment::CenterTop
                                                         : CellAlignment::LeftTop);
        MSFlexGrid1.SetColWidth(colonna, parte * (colonna == 0 ? 1 : colonna == 1 ? 10 : 4));
    }
    MSFlexGrid1.SetRows(righe);
    ScriviIntestazione(QStringLiteral("0075"));
}

void FormEserciziEseguiti::ScriviIntestazione(const QString &chiave)
{
    MSFlexGrid1.SetTextMatrix(0, 1, MLSTesto(chiave));
    MSFlexGrid1.SetTextMatrix(0, 2, EtichettaLivello);
    MSFlexGrid1.SetTextMatrix(0, 3, EtichettaEsatti);
    MSFlexGrid1.SetTextMatrix(0, 4, EtichettaErrati);
}

TitoliResoconto FormEserciziEseguiti::Titoli() const
{
    return {Label1.Caption(), Label2.Caption(), Label3.Caption()};
}

void FormEserciziEseguiti::Salva()
{
    // Cancelling gives no path, so the same box follows: meant.
    const int errore = Skipping([this] {
        const QString cartella = CartellaDati() + NomeUtente + QLatin1Char('\\');
        CreaSeManca(cartella);
        const QString percorso =
            ScegliFile(ModoFile::Salva, QStringLiteral("Salva"), {}, QStringLiteral("*.rpt"),
                       cartella, QStringLiteral("rpt"));
        ScriviResoconto(percorso, Titoli(), MSFlexGrid1);
    });
    if (errore != 0)
        Errore("0078");
}

void FormEserciziEseguiti::Apri()
{
    const int errore = Skipping([this] {
        MSFlexGrid1.Clear();
        CreaSeManca(CartellaDati());
        const QString percorso =
            ScegliFile(ModoFile::Apri, QStringLiteral("Apri"), {}, QStringLiteral("*.rpt"),
                       CartellaDati(), QStringLiteral("rpt"));
        ScriviIntestazione(QStringLiteral("0076"));
        LeggiFile(percorso);
    });
    if (errore != 0)
        Errore("0077");
}

void FormEserciziEseguiti::LeggiFile(const QString &percorso)
{
    if (FileLength(percorso) > ByteDiUnResoconto)
        throw RunTimeError(PathFileAccess, percorso);
    RecordReader file(percorso);
    LeggiResoconto(
        file,
        [this](QString TitoliResoconto::*quale, const QString &testo) {
            if (quale == &TitoliResoconto::Giocatore)
                Label1.SetCaption(testo);
            else if (quale == &TitoliResoconto::Data)
                Label2.SetCaption(testo);
            else
                Label3.SetCaption(testo);
        },
        MSFlexGrid1);
}

void FormEserciziEseguiti::StampaTabella()
{
    const BoxAnswer risposta = host().MessageBox({.Text = MLSTesto(QStringLiteral("0079")),
                                                  .Title = TitoloRiquadri,
                                                  .Icon = BoxIcon::Question,
                                                  .Buttons = BoxButtons::YesNo});
    if (risposta != BoxAnswer::Yes)
        return;
    host().MessageBox({.Text = MLSTesto(QStringLiteral("0080")),
                       .Title = TitoloRiquadri,
                       .Icon = BoxIcon::Information});
    if (Skipping([this] {
            const Hourglass clessidra(*this);
            StampaResoconto(Titoli(), NomeUtente, MSFlexGrid1, Scostamento, Scostamento);
        }) != 0)
        Errore("0098");
}
