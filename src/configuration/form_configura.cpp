#include "configuration/form_configura.h"

#include "core/lettering.h"
#include "core/palette.h"
#include "core/profile.h"
#include "core/shared_state.h"
#include "core/windows.h"
#include "frame/figure_movie.h"
#include "language/language.h"
#include "platform/base/errors.h"
#include "platform/base/local_text.h"
#include "platform/host/host.h"
#include "support/dialogs.h"
#include "support/full_screen.h"

#include <QStringList>

#include <algorithm>

using namespace platform;

namespace {

QString Titolo()
{
    return QStringLiteral("Morlenekvt");
}

// As the profile keeps it: system colours are negative.
double Numero(Color colore)
{
    return static_cast<int32_t>(colore);
}

} // namespace

void FormConfigura::Collega()
{
    OnLoad = [this] { CaricaFinestra(*this); };
    OnActivate = [this] { Attiva(); };
    OnResize = [this] {
        RidimensionaFinestra();
        Ridimensiona();
    };
    TabStrip1.OnClick = [this] { MostraPagina(); };
    mnuEsci.OnClick = [this] { Esci(); };

    OptionUtente.OnClick = [this](int) { m_utenti.ScegliTipo(); };
    ListModificaUtente.OnClick = [this] { m_utenti.Modifica(); };
    TextNuovoUtente.OnChange = [this] { m_utenti.ScriviNuovo(); };
    CheckSalvaUtente.OnClick = [this] { SalvaUtente = CheckSalvaUtente.Value(); };

    CasellaColorata.OnClick = [this](int casella) { ScegliCasella(casella); };
    Command4.OnClick = [this] {
        ColoriPredefiniti();
        Preparamorlena();
    };
    Check1.OnClick = [this] { PassaggioLivelli = Check1.Value(); };
    CheckSuoni.OnClick = [this] { SuoniAttivi = CheckSuoni.Value(); };

    Option4.OnClick = [this](int modo) { CambiaModoInput(modo); };
    CheckDisabilitaMousePersonalizzato.OnClick = [this] {
        DisabilitaMousePersonalizzato = CheckDisabilitaMousePersonalizzato.Value();
    };
    HScroll3.OnChange = [this] {
        VelocitaScansione = Integer16(HScroll3.Value());
        ScriviVelocita();
    };
}

void FormConfigura::Attiva()
{
    Move(0, 0, ScreenWidth(), ScreenHeight());
    // Error 340 for a mode that no option stands for.
    Option4(ModoInput).SetValue(true);
    Label4.SetCaption(NomeUtente);
    NascondiFrame();
    ImpostaConfigurazioni();
    FrameUtente.SetVisible(true);
    FrameUtente.BringToFront();
}

void FormConfigura::NascondiFrame()
{
    for (Frame *pagina :
         {&FrameUtente, &FrameMorlene, &FrameScelteDid, &FrameFonts, &FrameSuoni, &FramePunt})
        pagina->SetVisible(false);
}

void FormConfigura::MostraPagina()
{
    Frame *const pagine[] = {&FrameUtente, &FrameMorlene, &FrameScelteDid,
                             &FrameFonts,  &FrameSuoni,   &FramePunt};
    NascondiFrame();
    Frame &pagina = *pagine[TabStrip1.SelectedItem() - 1];
    pagina.SetVisible(true);
    pagina.BringToFront();
    if (&pagina == &FrameMorlene)
        Preparamorlena();
}

void FormConfigura::ImpostaConfigurazioni()
{
    // Each choice by code is a click whose handler writes its variable, and may come back here; it
    // ends because what is chosen already clicks no more.
    CheckSuoni.SetValue(SuoniAttivi);
    Check1.SetValue(PassaggioLivelli);
    CheckSalvaUtente.SetValue(SalvaUtente);
    FrameMorlene.SetBackColor(ToColor(ColoreSfondo));
    for (PictureBox &casella : CasellaColorata)
        casella.SetBackColor(
            ConvertiLetterale(ColoriWebLetterali.at(static_cast<size_t>(casella.Index()))));
    for (OptionButton &riga : Option2)
        riga.SetBackColor(ToColor(ColoreSfondo));
    // The button for the buttons' colour and the sample's ground keep the design's until a dialog
    // was open: meant.
    Command1.SetBackColor(ToColor(ColorePulsantiSelezionati));
    if (ColoriVari) {
        OptionColoreCasualeFisso(0).SetValue(true);
        FrameFonts.SetBackColor(SystemButtonFace);
    } else {
        FrameFonts.SetBackColor(ToColor(ColoreSfondo));
        OptionColoreCasualeFisso(1).SetValue(true);
    }
    // Entering in "corsivo" so copies "Indis1" over the font that was chosen before: meant.
    if (TipoCarattere == QStringLiteral("minuscolo"))
        minuscolo.SetValue(true);
    else if (TipoCarattere == QStringLiteral("maiuscolo"))
        maiuscolo.SetValue(true);
    else if (TipoCarattere == QStringLiteral("corsivo"))
        corsivo.SetValue(true);
    CheckSuoni.SetValue(SuoniAttivi);
    CheckDisabilitaMousePersonalizzato.SetValue(DisabilitaMousePersonalizzato);
    for (Label &campione : LabelFontSelezionato) {
        campione.SetFontName(FontCorrente);
        campione.SetFontSize(DimensioneFont);
        campione.SetForeColor(ToColor(ColoreFont));
        campione.SetCaption(TipoCarattere == QStringLiteral("maiuscolo")
                                ? InMaiuscolo(campione.Caption())
                                : InMinuscolo(campione.Caption()));
    }
    HScroll3.SetVisible(ModoInput == 2);
    Label7.SetVisible(ModoInput == 2);
    CheckDisabilitaMousePersonalizzato.SetVisible(ModoInput == 0);
    if (ModoInput == 2) {
        // A speed out of the bar's ends stands at the nearest one and stays as it is.
        const int16_t velocita = VelocitaScansione;
        HScroll3.SetValue(std::clamp<int>(velocita, HScroll3.Min(), HScroll3.Max()));
        VelocitaScansione = velocita;
        ScriviVelocita();
    }
}

// --- Colours of the figures ---

void FormConfigura::ScegliCasella(int casella)
{
    for (int riga = 0; riga <= 4; ++riga) {
        if (!Option2(riga).Value())
            continue;
        Colori(riga, 0) = ColoriWebHex.at(static_cast<size_t>(casella));
        if (riga == 0) // the background keeps its name
            continue;
        int colonna = 1;
        for (const char *domanda : {"0042", "0043", "0044", "0045"})
            Colori(riga, colonna++) =
                host().InputBox(MLSTesto(QString::fromLatin1(domanda)), Titolo(), {});
    }
    Preparamorlena();
}

void FormConfigura::Preparamorlena()
{
    ApriFigura(ShockwaveFlash1, 1);
    for (int i = 1; i <= 4; ++i)
        Option2(i).SetCaption(QStringList({Colori(i, 1), Colori(i, 2), Colori(i, 3), Colori(i, 4)})
                                  .join(QStringLiteral(" - ")));
    SetMousePointer(platform::MousePointer::Hourglass);
    DoEvents();
    ShockwaveFlash1.SetBGColor(Colori(0, 0));
    struct Pittura {
        int Parte;
        int Riga; // of `Colori`
    };
    for (const Pittura &pittura : {Pittura{2, 1}, {1, 2}, {3, 2}, {5, 3}, {4, 4}, {6, 1}})
        DipingiParte(ShockwaveFlash1, pittura.Parte, Colori(pittura.Riga, 0));
    SetMousePointer(platform::MousePointer::Default);
}

// --- Fonts and colours ---

void FormConfigura::CollegaFontEColori()
{
    minuscolo.OnClick = [this] { UsaCarattere(QStringLiteral("minuscolo")); };
    maiuscolo.OnClick = [this] { UsaCarattere(QStringLiteral("maiuscolo")); };
    corsivo.OnClick = [this] {
        FontScelto = FontCorrente;
        TipoCarattere = QStringLiteral("corsivo");
        FontCorrente = QStringLiteral("Indis1");
        ImpostaConfigurazioni();
    };
    CommandSceltaFont.OnClick = [this] { Skipping([&] { CambiaFont(); }); };
    CommandSceltaColoreFont.OnClick = [this] {
        if (ScegliColore(LabelFontSelezionato(0)))
            ColoreFont = Numero(LabelFontSelezionato(0).ForeColor());
    };
    CommandSceltaSfondoTesto.OnClick = [this] {
        if (!ScegliColore(LabelPerColore))
            return;
        LabelFontSelezionato(0).SetBackColor(LabelPerColore.ForeColor());
        ColoreSfondoTesto = Numero(LabelFontSelezionato(0).BackColor());
    };
    CommandSceltaColoreBottoni.OnClick = [this] {
        if (ScegliColore(LabelPerColore))
            ColoreBottoni = Numero(LabelPerColore.ForeColor());
        CommandSceltaColoreBottoni.SetBackColor(ToColor(ColoreBottoni));
    };
    Command1.OnClick = [this] {
        if (ScegliColore(LabelPerColore))
            ColorePulsantiSelezionati = Numero(LabelPerColore.ForeColor());
        Command1.SetBackColor(ToColor(ColorePulsantiSelezionati));
    };
    OptionColoreCasualeFisso.OnClick = [this](int fisso) {
        ColoriVari = fisso == 0;
        FrameFonts.SetBackColor(ColoriVari ? SystemButtonFace : ToColor(ColoreSfondo));
        CommandSceltaColori.SetEnabled(!ColoriVari);
    };
    CommandSceltaColori.OnClick = [this] {
        // The answer is not looked at: cancelling takes the colour that the hidden label has from
        // an earlier dialog or from the design, and that is meant.
        ScegliColore(LabelPerColore);
        ColoreSfondo = Numero(LabelPerColore.ForeColor());
        ImpostaConfigurazioni();
    };
}

void FormConfigura::UsaCarattere(const QString &tipo)
{
    TipoCarattere = tipo;
    FontCorrente = FontScelto;
    ImpostaConfigurazioni();
}

void FormConfigura::CambiaFont()
{
    Label &campione = LabelFontSelezionato(0);
    if (!ScegliFont(campione))
        return;
    if (TipoCarattere != QStringLiteral("corsivo"))
        FontCorrente = campione.Font().Name;
    else
        host().MessageBox({.Text = MLSTesto(QStringLiteral("0051")) + QLatin1Char('\n') +
                                   MLSTesto(QStringLiteral("0052")),
                           .Title = Titolo(),
                           .Icon = BoxIcon::Information});
    DimensioneFont = Integer16(RoundToLong(campione.Font().Size));
    FontScelto = campione.Font().Name;
    ImpostaConfigurazioni();
}

// --- Input modes ---

void FormConfigura::CambiaModoInput(int modo)
{
    ModoInput = Integer16(modo);
    ImpostaConfigurazioni();
}

void FormConfigura::ScriviVelocita()
{
    Label7.SetCaption(QStringLiteral("Velocità scansione: ") +
                      LocalNumber(VelocitaScansione / 4.0, 2) + QStringLiteral(" secondi"));
}

void FormConfigura::Esci()
{
    SalvaImpostazioni();
    MostraFinestra(QStringLiteral("FormMenu"));
    Unload();
}
