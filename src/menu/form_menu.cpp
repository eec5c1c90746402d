// The child chooses an exercise by its picture; the adult finds players, languages and help on the
// menu bar. The window is made anew at each return and set up from the shared state.
#include "menu/form_menu.h"

#include "core/profile.h"
#include "core/shared_state.h"
#include "core/windows.h"
#include "frame/scanning.h"
#include "language/language.h"
#include "menu/menu_items.h"
#include "platform/base/errors.h"
#include "platform/files/files.h"
#include "support/documents.h"
#include "support/full_screen.h"

#include <QStringList>

using namespace platform;

namespace {

constexpr double Larghezza = 7200; // twips
constexpr double Altezza = 5640;
constexpr Color Sfondo = 0x00C0E0FF;
constexpr int IntervalloFuoco = 100; // ms

} // namespace

FormMenu::FormMenu()
    : Form("FormMenu", Larghezza, Altezza), Image1(*this, "Image1"), Command1(*this, "Command1"),
      Combo1({*this, "Combo1"}, {4900, 360, 2100, 315}),
      LabelDimensionaFont({*this, "LabelDimensionaFont"}, {4900, 900, 300, 300}),
      PictureScansioneAutomatica({*this, "PictureScansioneAutomatica"}, {0, 0, 15, 15}),
      PictureScansioneManuale({*this, "PictureScansioneManuale"}, {0, 0, 15, 15}),
      Timer1({*this, "Timer1"}, IntervalloFuoco),
      mnuConfigura({*this, "mnuConfigura"}, QStringLiteral("Configurazione")),
      mnuEserciziEseguiti({*this, "mnuEserciziEseguiti"}, QStringLiteral("Esercizi eseguiti")),
      mnuInfo({*this, "mnuInfo"}, QStringLiteral("Informazioni")),
      mnuDocum({*this, "mnuDocum"}, mnuInfo, QStringLiteral("documentazione")),
      mnuAbout({*this, "mnuAbout"}, mnuInfo, QStringLiteral("about")),
      mnuLanguages({*this, "mnuLanguages"}, QStringLiteral("Lingua")),
      mnuLanguage(*this, "mnuLanguage")
{
    Disegna();
    Collega();
}

void FormMenu::Disegna()
{
    SetCaption(QStringLiteral("MorleneKVT"));
    SetBackColor(Sfondo);
    for (int i = 0; i < QuanteVoci; ++i) {
        const VoceMenu &voce = Voci.at(static_cast<size_t>(i));
        Image &figura = Image1.Add(i, Place{voce.Sinistra - 1000, voce.Alto - 120, 960, 960},
                                   QString::fromLatin1(voce.Figura));
        figura.SetSpokenName(QString::fromUtf8(voce.Titolo));
        figura.SetToolTipText({});
        Label &titolo = Command1.Add(i, Place{voce.Sinistra, voce.Alto, 1020, 735},
                                     QString::fromUtf8(voce.Titolo), Alignment::Center);
        titolo.SetBackColor(Sfondo);
        titolo.SetFontName(QStringLiteral("arial"));
        titolo.SetFontBold(true);
        titolo.SetFontSize(14.25);
        titolo.ShareSize(Command1(0));
    }
    Command1(0).SetMousePointer(platform::MousePointer::Custom);
    Combo1.SetVisible(false);
    Combo1.SetSpokenName(QStringLiteral("Giocatore"));
    LabelDimensionaFont.SetAutoSize(true);
    LabelDimensionaFont.SetFontBold(true);
    LabelDimensionaFont.SetVisible(false);
    PictureScansioneAutomatica.SetVisible(false);
    PictureScansioneManuale.SetVisible(false);
    PictureScansioneManuale.SetSpokenName(QStringLiteral("Tasti della scansione"));
    PictureScansioneAutomatica.SetSpokenName(QStringLiteral("Sensore della scansione"));
    mnuLanguage.Add(0, mnuLanguages, QString());
}

void FormMenu::Collega()
{
    OnLoad = [this] { Carica(); };
    OnActivate = [this] { Attiva(); };
    OnResize = RidimensionaFinestra;
    OnMouseMove = [this] {
        if (ModoInput == 0)
            Skipping([&] { Spegni(); });
    };
    Command1.OnClick = Image1.OnClick = [this](int indice) {
        auto voce = Integer16(indice);
        if (ModoInput == 0)
            AvviaEsercizi(voce);
    };
    Command1.OnMouseMove = Image1.OnMouseMove = [this](int indice) {
        if (ModoInput == 0)
            Skipping([&] { Accendi(indice); });
    };
    Combo1.OnClick = [this] { CambiaUtente(); };
    mnuLanguage.OnClick = [this](int indice) { CambiaLingua(indice); };
    Timer1.OnTimer = [this] { Tick(); };
    Timer1.RestWhile([this] {
        return (ModoInput == 1 || ModoInput == 3) && PictureScansioneManuale.HasFocus();
    });
    PictureScansioneManuale.OnKeyUp = [this](int tasto, int) { TastoManuale(tasto); };
    PictureScansioneAutomatica.OnKeyUp = [this](int tasto, int) { TastoAutomatico(tasto); };

    mnuConfigura.OnClick = [this] {
        SetMousePointer(platform::MousePointer::Hourglass);
        MostraFinestra(QStringLiteral("FormConfigura"));
        Unload();
    };
    mnuEserciziEseguiti.OnClick = [this] {
        MostraFinestra(QStringLiteral("FormEserciziEseguiti"));
        Unload();
    };
    mnuDocum.OnClick = [] { ApriDocumento(AppPath() + QStringLiteral("\\morlenekvt.pdf")); };
    mnuAbout.OnClick = [this] {
        MostraFinestra(QStringLiteral("FormInfo"));
        Unload();
    };
}

void FormMenu::Carica()
{
    MLSFillMenuLanguages();
    CaricaFinestra(*this);
    ComponiTitoli();
}

// Lays the captions over two or three lines, so that each fills its place.
void FormMenu::ComponiTitoli()
{
    const QString aCapo = QStringLiteral("\n");
    for (const int i : {0, 1, 4, 5, 7, 8})
        Command1(i).SetCaption(aCapo + Command1(i).Caption());
    Command1(2).SetCaption(MLSTesto(QStringLiteral("0059")) + aCapo +
                           MLSTesto(QStringLiteral("0060")) + aCapo + QStringLiteral("1°"));
    Command1(3).SetCaption(MLSTesto(QStringLiteral("0061")) + aCapo +
                           MLSTesto(QStringLiteral("0062")) + aCapo + QStringLiteral("2°"));
    Command1(6).SetCaption(aCapo + MLSTesto(QStringLiteral("0063")) + aCapo +
                           MLSTesto(QStringLiteral("0064")));
}

void FormMenu::Attiva()
{
    Move(0, 0, ScreenWidth(), ScreenHeight());
    Esatti = 0;
    Errati = 0;
    PosizioneScansione = 1;
    DoEvents();
    RecuperaUtenti();
    ImpostaUtente();
}

void FormMenu::AvviaEsercizi(int16_t &indice)
{
    if (indice == Esci)
        return ChiudiProgramma();
    if (indice < 0 || indice > Esci)
        return;
    const VoceMenu &voce = Voci.at(static_cast<size_t>(indice));
    NumeroEserciziEseguiti = Integer16(NumeroEserciziEseguiti + 1);
    // Past the last row of the log this is error 9, and nothing traps it: meant.
    EserciziEseguiti(NumeroEserciziEseguiti, 0) = MLSTesto(QString::fromLatin1(voce.ChiaveTitolo));
    MostraFinestra(QString::fromLatin1(voce.Finestra));
    Unload();
}

void FormMenu::ChiudiProgramma()
{
    SalvaImpostazioni();
    Ridimensionatore.reset();
    EndProgram();
}

void FormMenu::Accendi(int indice)
{
    const Color acceso = ToColor(ColorePulsantiSelezionati);
    // A move inside a lit item costs nothing.
    if (Command1(indice).BackColor() == acceso)
        return;
    for (Label &titolo : Command1)
        titolo.SetBackColor(BackColor());
    Command1(indice).SetBackColor(acceso);
}

void FormMenu::Spegni()
{
    for (Label &titolo : Command1)
        if (titolo.BackColor() != BackColor())
            titolo.SetBackColor(BackColor());
}

// --- Languages ---

void FormMenu::MLSFillMenuLanguages()
{
    QStringList file;
    Skipping([&] { file = LingueInstallate(); });
    if (file.isEmpty()) {
        host().MessageBox({.Text = QStringLiteral("Non è presente alcun file di linguaggio!")});
        return;
    }
    for (int i = 0; i < static_cast<int>(file.size()); ++i) {
        if (i > 0)
            mnuLanguage.Add(i, mnuLanguages, QString());
        mnuLanguage(i).SetCaption(file.at(i).chopped(4));
    }
    LeggiLinguaCorrente();
    for (MenuItem &voce : mnuLanguage) {
        if (voce.Caption() != LinguaCorrente)
            continue;
        voce.SetChecked(true);
        break;
    }
}

void FormMenu::CambiaLingua(int indice)
{
    for (MenuItem &voce : mnuLanguage)
        voce.SetChecked(false);
    mnuLanguage(indice).SetChecked(true);
    LinguaCorrente = mnuLanguage(indice).Caption();
    // What was composed at load, and the pieces read at start, keep the old language until they
    // are made anew: meant.
    for (Form *finestra : Form::Loaded())
        MLSCaricaForm(*finestra);
    SalvaLinguaCorrente();
}

// --- Scanning ---

void FormMenu::Passo(int verso)
{
    // All four arrows walk the one line of nine items, and none is skipped.
    Command1(PosizioneScansione).SetBackColor(ToColor(ColoreBottoni));
    PosizioneScansione =
        Integer16(PassoCircolare(PosizioneScansione, QuanteVoci, verso, [](int) { return true; }));
    Command1(PosizioneScansione).SetBackColor(ToColor(ColorePulsantiSelezionati));
}

void FormMenu::Scegli()
{
    int16_t voce = PosizioneScansione;
    AvviaEsercizi(voce);
}

void FormMenu::Tick()
{
    // Leaves quietly on any error; the most usual one is a focus that cannot be taken.
    if (ModoInput == 1 || ModoInput == 3)
        Skipping([&] { PictureScansioneManuale.SetFocus(); });
    if (ModoInput == 2)
        Skipping([&] {
            PictureScansioneAutomatica.SetFocus();
            Passo(1);
        });
}

void FormMenu::TastoManuale(int tasto)
{
    const Gesto gesto = GestoManuale(tasto);
    if (gesto == Gesto::Scegli)
        Scegli();
    else if (gesto != Gesto::Nessuno)
        Passo(Segno(gesto));
}

void FormMenu::TastoAutomatico(int tasto)
{
    if (GestoAutomatico(tasto) != Gesto::Scegli)
        return;
    Scegli();
    Timer1.SetEnabled(true);
}
