#include "frame/exercise_window.h"

#include "core/profile.h"
#include "core/sounds.h"
#include "core/windows.h"
#include "frame/quick_print.h"
#include "support/full_screen.h"

using namespace platform;

namespace {

constexpr int IntervalloFuoco = 100; // ms between two pulls of the keyboard, by design
constexpr double AltezzaBarra = 500; // twips
constexpr double AltezzaBarraDisegno = 495;

} // namespace

FinestraEsercizio::FinestraEsercizio(const DisegnoEsercizio &disegno)
    : Form(disegno.Nome, disegno.Larghezza, disegno.Altezza),
      PicMerlino({*this, disegno.NomeMerlino}, disegno.Merlino),
      Timer1({*this, "Timer1"}, IntervalloFuoco),
      PictureScansioneManuale({*this, "PictureScansioneManuale"},
                              {disegno.TastieraSinistra, disegno.TastieraManualeAlto, 615, 495}),
      PictureScansioneAutomatica(
          {*this, "PictureScansioneAutomatica"},
          {disegno.TastieraSinistra, disegno.TastieraAutomaticaAlto, 495, 495}),
      Command1(*this, "Command1"),
      StatusBar1({*this, "StatusBar1"},
                 {0, disegno.Altezza - AltezzaBarraDisegno, disegno.Larghezza, AltezzaBarraDisegno},
                 3),
      mnuLivelli({*this, "mnuLivelli"}, QStringLiteral("&Livelli")), mnuLiv(*this, "mnuLiv"),
      mnuSt({*this, "mnuSt"}, QStringLiteral("&Stampa")),
      mnuStEserc({*this, "mnuStEserc"}, mnuSt, QStringLiteral("veloce"), QStringLiteral("Ctrl+S")),
      mnuStPg({*this, "mnuStPg"}, mnuSt, QStringLiteral("con opzioni")),
      mnuStOr({*this, "mnuStOr"}, mnuStPg, QStringLiteral("foglio orizzontale"),
              QStringLiteral("Ctrl+O")),
      mnuStVer({*this, "mnuStVer"}, mnuStPg, QStringLiteral("foglio verticale"),
               QStringLiteral("Ctrl+V")),
      mnuCol({*this, disegno.NomeFiguraDaColorare}, mnuSt, QStringLiteral("figura da colorare"),
             QStringLiteral("Ctrl+P")),
      mnuEsci({*this, "mnuEsci"}, QStringLiteral("&Esci")), m_disegno(disegno)
{
    SetCaption(QStringLiteral("MorleneKVT"));
    SetBackColor(disegno.Sfondo);
    // The bar keeps its own height on every screen.
    StatusBar1.SetTag(QStringLiteral("@L,T,W"));
    for (int i = 1; i <= disegno.Livelli; ++i)
        mnuLiv.Add(i, mnuLivelli, QString::number(i), QStringLiteral("F%1").arg(i));
    mnuLiv(1).SetChecked(true);
    PictureScansioneManuale.SetSpokenName(QStringLiteral("Tasti della scansione"));
    PictureScansioneAutomatica.SetSpokenName(QStringLiteral("Sensore della scansione"));

    OnLoad = [this] { Carica(); };
    OnActivate = [this] { Attiva(); };
    OnResize = [this] { Ridimensiona(); };
    mnuLiv.OnClick = [this](int indice) { ScegliLivello(indice); };
    mnuEsci.OnClick = [this] { Esci(); };
    CollegaScansione();

    mnuStEserc.OnClick = [this] { StampaVeloce(*this); };
    mnuStOr.OnClick = [this] { StampaConOpzioni(*this, 2); };
    mnuStVer.OnClick = [this] { StampaConOpzioni(*this, 1); };
    mnuCol.OnClick = [] { FiguraDaColorare(); };
}

void FinestraEsercizio::Carica()
{
    CaricaFinestra(*this);
}

void FinestraEsercizio::Ridimensiona()
{
    RidimensionaFinestra();
    if (ModoInput == 2) {
        ScaricaFinestra(QStringLiteral("FormMenu"));
        DoEvents();
    }
}

void FinestraEsercizio::OccupaLoSchermo()
{
    Move(0, 0, ScreenWidth(), ScreenHeight());
}

void FinestraEsercizio::VestiPuntatori()
{
    if (!DisabilitaMousePersonalizzato)
        return;
    for (Button &pulsante : Command1)
        pulsante.SetMousePointer(platform::MousePointer::Default);
}

void FinestraEsercizio::VestiSfondo()
{
    if (!ColoriVari)
        SetBackColor(ToColor(ColoreSfondo));
}

void FinestraEsercizio::VestiPulsanti()
{
    for (Button &pulsante : Command1)
        pulsante.SetBackColor(ToColor(ColoreBottoni));
}

void FinestraEsercizio::VestiPulsante(int indice)
{
    Command1(indice).SetBackColor(ToColor(ColoreBottoni));
}

void FinestraEsercizio::CominciaDalPrimoLivello()
{
    // The tick in the menu is not moved back: meant.
    Livello = 1;
    mnuLivelli.SetEnabled(!PassaggioLivelli);
}

void FinestraEsercizio::AzzeraContatori()
{
    ScriviPannelloLivello();
    Esatti = 0;
    Errati = 0;
    ScriviPannelloEsatti();
    ScriviPannelloErrati();
}

void FinestraEsercizio::AbbassaBarraDiStato()
{
    StatusBar1.SetHeight(AltezzaBarra);
}

void FinestraEsercizio::ContaEsatto()
{
    ++Esatti;
}

void FinestraEsercizio::ContaErrato()
{
    Errati = Integer16(Errati + 1);
}

void FinestraEsercizio::RispostaErrata()
{
    SuonoErrato();
    ContaErrato();
    ScriviPannelloErrati();
}

void FinestraEsercizio::ScriviPannelloEsatti()
{
    StatusBar1.SetPanel(1, QString::number(Esatti) + EtichettaEsatti);
}

void FinestraEsercizio::ScriviPannelloErrati()
{
    StatusBar1.SetPanel(2, QString::number(Errati) + EtichettaErrati);
}

void FinestraEsercizio::ScriviPannelloLivello()
{
    StatusBar1.SetPanel(3, QString::number(Livello) + EtichettaLivello);
}

void FinestraEsercizio::CollegaLuce()
{
    Command1.OnMouseMove = [this](int indice) {
        if (ModoInput == 0)
            Skipping([&] { AccendiPulsante(indice); });
    };
    OnMouseMove = [this] {
        if (ModoInput == 0)
            Skipping([&] { SpegniPulsanti(); });
    };
}

void FinestraEsercizio::SpegniPulsanti()
{
    for (Button &pulsante : Command1)
        if (pulsante.BackColor() != ToColor(ColoreBottoni))
            pulsante.SetBackColor(ToColor(ColoreBottoni));
}

void FinestraEsercizio::AccendiPulsante(int indice)
{
    for (Button &pulsante : Command1)
        if (pulsante.Index() != indice && pulsante.BackColor() != ToColor(ColoreBottoni))
            pulsante.SetBackColor(ToColor(ColoreBottoni));
    if (Command1(indice).BackColor() != ToColor(ColorePulsantiSelezionati))
        Command1(indice).SetBackColor(ToColor(ColorePulsantiSelezionati));
}

void FinestraEsercizio::Esci()
{
    // Errors are skipped one by one: a full log never bars the way back to the menu.
    Skipping([&] { EserciziEseguiti(NumeroEserciziEseguiti, 1) = QString::number(Livello); });
    Skipping([&] { EserciziEseguiti(NumeroEserciziEseguiti, 2) = QString::number(Esatti); });
    Skipping([&] { EserciziEseguiti(NumeroEserciziEseguiti, 3) = QString::number(Errati); });
    Skipping([&] { NumeroEserciziEseguiti = Integer16(NumeroEserciziEseguiti + 1); });
    Skipping([&] { MostraFinestra(QStringLiteral("FormMenu")); });
    Skipping([&] { Unload(); });
}
