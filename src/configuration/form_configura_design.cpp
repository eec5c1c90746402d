// The design of the adult's window: six pages one on top of the other, in twips. The letters grow
// with the window.
#include "configuration/form_configura.h"

#include "core/palette.h"
#include "core/profile.h"

#include <array>

using namespace platform;

namespace {

constexpr double Larghezza = 11520;
constexpr double Altezza = 8100;
constexpr Place Pagina = {120, 1440, 11280, 6540};
constexpr double Punti = 11.5; // at the design's height
constexpr double PuntiNome = 16;

// The squares overlap by a pixel, so that neighbours share their line.
constexpr double Casella = 375;
constexpr double Passo = 360;
constexpr int Celle = 16; // a row

QString Testo(const char *testo)
{
    return QString::fromUtf8(testo);
}

// The cells of the grid without a square, by row and column.
bool CellaLibera(int riga, int colonna)
{
    const auto fra = [colonna](int prima, int ultima) {
        return colonna >= prima && colonna <= ultima;
    };
    switch (riga) {
    case 0:
        return fra(10, 15);
    case 1:
    case 14:
        return fra(1, 4) || fra(11, 14);
    case 7:
        return fra(7, 9);
    case 8:
        return fra(6, 8);
    case 15:
        return fra(0, 5) || fra(10, 15);
    default:
        return false;
    }
}

} // namespace

FormConfigura::FormConfigura()
    : Form("FormConfigura", Larghezza, Altezza),
      Label3({*this, "Label3"}, {240, 165, 1560, 480}, Testo("Giocatore:")),
      Label4({*this, "Label4"}, {1860, 120, 9540, 540}),
      LabelPerColore({*this, "LabelPerColore"}, {11280, 120, 120, 120}),
      TabStrip1({*this, "TabStrip1"}, {120, 750, 11280, 690},
                {Testo("Giocatori"), Testo("Colori morlene"), Testo("Scelte didattiche"),
                 Testo("Font e colori"), Testo("Suoni "), Testo("Modalità di input")}),
      FrameUtente({*this, "FrameUtente"}, Pagina), OptionUtente(FrameUtente.Inside("OptionUtente")),
      ListModificaUtente(FrameUtente.Inside("ListModificaUtente"), {4560, 1200, 4200, 3720}),
      TextNuovoUtente(FrameUtente.Inside("TextNuovoUtente"), {4560, 1980, 4200, 540}),
      CheckSalvaUtente(FrameUtente.Inside("CheckSalvaUtente"), {360, 5400, 8400, 540},
                       Testo("Tieni traccia dell'attività eseguita")),
      FrameMorlene({*this, "FrameMorlene"}, Pagina),
      CasellaColorata(FrameMorlene.Inside("CasellaColorata")),
      Option2(FrameMorlene.Inside("Option2")),
      ShockwaveFlash1(FrameMorlene.Inside("ShockwaveFlash1"), {6300, 3180, 2700, 3015}),
      Command4(FrameMorlene.Inside("Command4"), {9240, 5160, 1800, 1035},
               Testo("Configurazione predefinita")),
      FrameScelteDid({*this, "FrameScelteDid"}, Pagina),
      Check1(FrameScelteDid.Inside("Check1"), {360, 480, 8400, 540},
             Testo("Attiva passaggio livelli")),
      FrameFonts({*this, "FrameFonts"}, Pagina),
      FrameScelte(FrameFonts.Inside("FrameScelte"), {240, 240, 3480, 2580}, Testo("Scrittura")),
      minuscolo(FrameScelte.Inside("minuscolo"), {240, 480, 3000, 540}, Testo("minuscolo")),
      maiuscolo(FrameScelte.Inside("maiuscolo"), {240, 1140, 3000, 540}, Testo("MAIUSCOLO")),
      corsivo(FrameScelte.Inside("corsivo"), {240, 1740, 3000, 720}, Testo("corsivo")),
      Frame6(FrameFonts.Inside("Frame6"), {240, 3000, 3480, 3300}, Testo("Sfondo delle finestre")),
      OptionColoreCasualeFisso(Frame6.Inside("OptionColoreCasualeFisso")),
      CommandSceltaColori(Frame6.Inside("CommandSceltaColori"), {240, 2100, 3000, 900},
                          Testo("Colori")),
      Frame5(FrameFonts.Inside("Frame5"), {3960, 240, 3480, 6060}, Testo("Testo e pulsanti")),
      CommandSceltaFont(Frame5.Inside("CommandSceltaFont"), {240, 540, 3000, 900}, Testo("Font")),
      CommandSceltaColoreFont(Frame5.Inside("CommandSceltaColoreFont"), {240, 1620, 3000, 900},
                              Testo("Colore font")),
      CommandSceltaSfondoTesto(Frame5.Inside("CommandSceltaSfondoTesto"), {240, 2700, 3000, 900},
                               Testo("Sfondo testo")),
      CommandSceltaColoreBottoni(Frame5.Inside("CommandSceltaColoreBottoni"),
                                 {240, 3780, 3000, 900}, Testo("Pulsanti")),
      Command1(Frame5.Inside("Command1"), {240, 4860, 3000, 900}, Testo("Pulsanti selezionati")),
      LabelFontSelezionato(FrameFonts.Inside("LabelFontSelezionato")),
      FrameSuoni({*this, "FrameSuoni"}, Pagina),
      CheckSuoni(FrameSuoni.Inside("CheckSuoni"), {360, 480, 8400, 540}, Testo("Attiva suoni")),
      FramePunt({*this, "FramePunt"}, Pagina), Option4(FramePunt.Inside("Option4")),
      CheckDisabilitaMousePersonalizzato(FramePunt.Inside("CheckDisabilitaMousePersonalizzato"),
                                         {360, 3720, 6300, 540}, Testo("Usa cursore di sistema")),
      Label7(FramePunt.Inside("Label7"), {360, 3660, 6300, 480}),
      HScroll3(FramePunt.Inside("HScroll3"), {360, 4200, 6300, 540}, 4, 60),
      Label1(FramePunt.Inside("Label1"), {360, 5460, 10440, 540},
             Testo("La scansione utilizza il colore scelto per i 'pulsanti selezionati'.")),
      PictureScansione(FramePunt.Inside("PictureScansione"), {7200, 480, 3600, 4260},
                       Testo("scansione")),
      mnuEsci({*this, "mnuEsci"}, Testo("&Esci"))
{
    Disegna();
    DisegnaCaselle();
    DisegnaFontEColori();
    Collega();
    CollegaFontEColori();
}

void FormConfigura::Disegna()
{
    SetCaption(Testo("Configurazione"));
    Label4.SetFontBold(true);
    LabelPerColore.SetVisible(false);
    LabelPerColore.SetForeColor(0x00FFFF80);
    constexpr std::array<const char *, 6> figure = {"giocatori", "colori", "livelli",
                                                    "lettere",   "suoni",  "modi"};
    for (int i = 0; i < 6; ++i)
        TabStrip1.SetTabPicture(i + 1, Testo(figure.at(static_cast<size_t>(i))));
    ListModificaUtente.SetSpokenName(Testo("Giocatori"));
    TextNuovoUtente.SetSpokenName(Testo("Nome del nuovo giocatore"));
    ShockwaveFlash1.SetSpokenName(Testo("Morlena nei colori scelti"));
    for (Frame *pagina :
         {&FrameUtente, &FrameMorlene, &FrameScelteDid, &FrameFonts, &FrameSuoni, &FramePunt})
        pagina->SetVisible(false);

    constexpr std::array<const char *, 3> utenti = {"Utente predefinito", "Modifica utente",
                                                    "Nuovo utente"};
    for (int i = 0; i < 3; ++i)
        OptionUtente.Add(i, Place{360, 480 + 780.0 * i, 3900, 540},
                         Testo(utenti.at(static_cast<size_t>(i))));
    ListModificaUtente.SetVisible(false);
    TextNuovoUtente.SetVisible(false);
    TextNuovoUtente.SetBackColor(SystemWindow);

    constexpr std::array<const char *, 4> modi = {"Mouse", "Scansione manuale - spazio e invio ",
                                                  "Scansione automatica - spazio",
                                                  "Tastiera - frecce e invio"};
    for (int i = 0; i < 4; ++i)
        Option4.Add(i, Place{360, 480 + 720.0 * i, 6300, 540},
                    Testo(modi.at(static_cast<size_t>(i))));
    HScroll3.SetChanges(1, 4);
    HScroll3.SetSpokenName(Testo("Velocità scansione"));
    PictureScansione.SetTabStop(false);
    PictureScansione.SetSpokenName(Testo("Tre pulsanti, uno illuminato, e un sensore"));
}

void FormConfigura::DisegnaCaselle()
{
    int casella = 0;
    for (int riga = 0; riga < Celle; ++riga)
        for (int colonna = 0; colonna < Celle; ++colonna) {
            if (CellaLibera(riga, colonna))
                continue;
            PictureBox &quadrato = CasellaColorata.Add(
                casella, Place{120 + Passo * colonna, 360 + Passo * riga, Casella, Casella});
            // One stop for all of them: the arrows go from square to square.
            quadrato.SetTabStop(casella == 0);
            quadrato.SetBordered(true);
            quadrato.SetSpokenName(ColoriWebHex.at(static_cast<size_t>(casella)));
            ++casella;
        }
    constexpr std::array<const char *, 5> righe = {"Sfondo", "Colore 2", "Colore 3", "Colore 4",
                                                   "Colore 5"};
    for (int i = 0; i < 5; ++i)
        Option2.Add(i, Place{6300, 360 + 540.0 * i, 4740, 510},
                    Testo(righe.at(static_cast<size_t>(i))));
    Option2(0).SetValue(true);
}

void FormConfigura::DisegnaFontEColori()
{
    corsivo.SetFontName(Testo("Indis1"));
    constexpr std::array<const char *, 2> sfondi = {"Colori vari", "Colore fisso"};
    for (int i = 0; i < 2; ++i)
        OptionColoreCasualeFisso.Add(i, Place{240, 540 + 720.0 * i, 3000, 540},
                                     Testo(sfondi.at(static_cast<size_t>(i))));
    LabelFontSelezionato.Add(0, Place{7680, 330, 3360, 2940}, Testo("La porta è rossa."),
                             Alignment::Center);
    LabelFontSelezionato.Add(1, Place{7680, 3390, 3360, 2910}, Testo("Vero o falso?"),
                             Alignment::Center);
    for (Label &campione : LabelFontSelezionato) {
        campione.SetFramed(true);
        campione.SetBackColor(Rgb(255, 255, 255));
    }
    for (Button *pulsante :
         {&CommandSceltaColori, &CommandSceltaFont, &CommandSceltaColoreFont,
          &CommandSceltaSfondoTesto, &CommandSceltaColoreBottoni, &Command1, &Command4})
        pulsante->SetTabStop(true);
}

void FormConfigura::Ridimensiona()
{
    const double scala = ScaleHeight() / Altezza;
    for (Control *controllo : Controls()) {
        auto *visibile = dynamic_cast<VisualControl *>(controllo);
        // The samples show the player's own size.
        if (visibile == nullptr || controllo->Name() == Testo("LabelFontSelezionato") ||
            controllo->Name() == Testo("CasellaColorata"))
            continue;
        visibile->SetFontSize((visibile == &Label4 ? PuntiNome : Punti) * scala);
    }
}
