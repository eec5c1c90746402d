#include "exercises/figure_grid.h"

#include "core/lettering.h"
#include "core/sounds.h"
#include "frame/sentences.h"
#include "platform/files/files.h"
#include "platform/host/chance.h"

using namespace platform;

namespace {

constexpr int PiuFigure = 12;
constexpr int QuanteParti = 8;
constexpr int SpessoreRiquadro = 9; // pixels; counted as twips in the frame's size: meant
constexpr int16_t Usata = 99;

// One level: its figures in rows, places in twips.
struct DisegnoLivello {
    int Figure;
    int Colonne;
    double Larghezza;
    double Altezza;
    std::array<double, 4> Sinistre;
    std::array<double, 3> Alti;
    int PassoVerticale; // of the highlight, in figures; 0: it does not move up or down
};
constexpr std::array<DisegnoLivello, 5> Livelli = {{
    {2, 2, 2295, 3495, {120, 2640, 0, 0}, {480, 0, 0}, 0},
    {4, 2, 2055, 2535, {120, 2520, 0, 0}, {120, 2760, 0}, 2},
    {6, 3, 1575, 2175, {120, 1800, 3480, 0}, {120, 2760, 0}, 3},
    {9, 3, 1335, 1695, {240, 1920, 3480, 0}, {120, 1920, 3720}, 3},
    {12, 4, 1215, 1575, {120, 1440, 2760, 4080}, {120, 1920, 3720}, 4},
}};

const DisegnoLivello &Disegno(int livello)
{
    return Livelli.at(static_cast<size_t>(livello) - 1);
}

void AggiungiModelli(ControlArray<Frame> &griglia, int livello)
{
    const DisegnoLivello &disegno = Disegno(livello);
    for (int i = 0; i < disegno.Figure; ++i) {
        const auto colonna = static_cast<size_t>(i % disegno.Colonne);
        const auto fila = static_cast<size_t>(i / disegno.Colonne);
        griglia
            .Add(i, Place{disegno.Sinistre.at(colonna), disegno.Alti.at(fila), disegno.Larghezza,
                          disegno.Altezza})
            .SetVisible(false);
    }
}

} // namespace

GrigliaFigure::GrigliaFigure(const DisegnoEsercizio &disegno, const QString &istruzione)
    : FinestraEsercizio(disegno), ShockwaveFlash1(*this, "ShockwaveFlash1"),
      Text1({*this, "Text1"}, {5400, 120, 2655, 3255}, TextBox::Kind::ReadOnlyPage),
      Label1({*this, "Label1"}, {120, 5520, 8055, 375}, istruzione),
      Picture1({*this, "Picture1"}, {5400, 120, 2775, 3975}), Image1(Picture1.Inside("Image1")),
      Frame1(*this, "Frame1"), Frame2(*this, "Frame2"), Frame3(*this, "Frame3"),
      Frame4(*this, "Frame4"), Frame5(*this, "Frame5"),
      Shape1({*this, "Shape1"}, {0, 3720, 495, 1095})
{
    int livello = 0;
    for (Griglia *griglia : {&Frame1, &Frame2, &Frame3, &Frame4, &Frame5})
        AggiungiModelli(*griglia, ++livello);
    for (int i = 0; i < PiuFigure; ++i) {
        const Frame &modello = Frame5(i);
        MovieControl &figura = ShockwaveFlash1.Add(
            i, Place{modello.Left(), modello.Top(), modello.Width(), modello.Height()});
        figura.SetSpokenName(QStringLiteral("Morlena %1").arg(i + 1));
        figura.OnFSCommand = [this, i](const QString &, const QString &) {
            if (ModoInput == 0)
                FiguraCliccata(i);
        };
    }
    for (int i = 0; i < QuanteParti; ++i) {
        const int fila = i / 2;
        Image1.Add(i, Place{120.0 + 1320 * (i % 2), 120.0 + 960 * fila, 1215, 855});
    }
    Command1.Add(Prossimo, Place{6960, 4680, 1095, 735});
    Command1(Prossimo).SetPicture(QStringLiteral("prossimo"));
    Command1(Prossimo).SetSpokenName(QStringLiteral("Avanti"));
    Command1(Prossimo).SetMousePointer(platform::MousePointer::Custom);
    Text1.SetSpokenName(QStringLiteral("Caratteristiche"));
    Label1.SetFontName(QStringLiteral("Verdana"));
    Label1.SetFontSize(16);
    Label1.SetTransparent(true);
    Shape1.SetBorderWidth(SpessoreRiquadro);
    Shape1.BringToFront();

    OnLoad = [this] {
        Carica();
        for (MovieControl &figura : ShockwaveFlash1)
            figura.SetVisible(false);
    };
    Command1.OnClick = [this](int) {
        if (ModoInput != 0)
            return;
        SvuotaFigure();
        GeneraEsercizio();
    };
    CollegaLuce();
    Text1.OnMouseMove = OnMouseMove;
}

void GrigliaFigure::Attiva()
{
    OccupaLoSchermo();
    Picture1.SetVisible(false);
    PicMerlino.SetVisible(false);
    Shape1.SetVisible(false);
    Shape1.SetBorderColor(ToColor(ColorePulsantiSelezionati));
    VestiPuntatori();
    for (Image &immagine : Image1)
        immagine.SetMousePointer(DisabilitaMousePersonalizzato ? platform::MousePointer::Default
                                                               : platform::MousePointer::Custom);
    VestiSfondo();
    VestiTesto(Text1);
    VestiPulsante(Prossimo);
    CominciaDalPrimoLivello();
    if (AvviaScansione())
        Command1(Prossimo).SetMousePointer(platform::MousePointer::Default);
    AzzeraContatori();
    AbbassaBarraDiStato();
    GeneraEsercizio();
}

// --- Making the task ---

void GrigliaFigure::GeneraEsercizio()
{
    Shape1.SetVisible(false);
    if (PassaggioLivelli)
        CambiaLivello([] {});
    ImpostaLivelli();
    Command1(Prossimo).SetEnabled(false);
    ImpostaColori();
    FigureEliminate = 0;
    if (ModoInput > 0) {
        Timer1.SetEnabled(true);
        PosizioneScansione = 0;
        SistemaRiquadro();
    }
    ScriviFrase();
}

void GrigliaFigure::ImpostaLivelli()
{
    for (MovieControl &figura : ShockwaveFlash1)
        figura.SetVisible(false);
    const std::array<const Griglia *, 5> griglie = {&Frame1, &Frame2, &Frame3, &Frame4, &Frame5};
    const Griglia &griglia = *griglie.at(static_cast<size_t>(Livello) - 1);
    NumeroFigure = Integer16(Disegno(Livello).Figure);
    for (int i = 0; i < NumeroFigure; ++i) {
        MovieControl &figura = ShockwaveFlash1(i);
        figura.SetLeft(griglia(i).Left());
        figura.SetTop(griglia(i).Top());
        figura.SetWidth(griglia(i).Width());
        figura.SetHeight(griglia(i).Height());
        figura.SetVisible(true);
    }
    Shape1.SetWidth(ShockwaveFlash1(0).Width() + 2 * SpessoreRiquadro);
    Shape1.SetHeight(ShockwaveFlash1(0).Height() + 2 * SpessoreRiquadro);
    ApriFilemorlene();
}

void GrigliaFigure::ApriFilemorlene()
{
    // A click is taken in either frame; 1 has the movie's own pointer.
    const int fotogramma = ModoInput == 0 && !DisabilitaMousePersonalizzato ? 1 : 0;
    for (int i = 0; i < NumeroFigure; ++i)
        ApriFigura(ShockwaveFlash1(i), fotogramma);
    DoEvents();
}

void GrigliaFigure::SvuotaFigure()
{
    for (int i = 0; i < NumeroFigure; ++i)
        ShockwaveFlash1(i).SetMovie(AppPath() + QStringLiteral("\\swf\\morlena0.swf"));
}

void GrigliaFigure::ImpostaColori()
{
    // The first failing statement leaves, and the pointer stays the hourglass: meant.
    Skipping([&] {
        FiguraCercata = Integer16(Draw(NumeroFigure));
        // Nothing is compared: two houses may come out alike, and only the index counts.
        for (int i = 0; i < NumeroFigure; ++i) {
            Colorazione colori;
            for (int parte = 1; parte <= PartiDipinte; ++parte)
                colori(parte) = Integer16(Draw(4) + 1);
            for (const int parte : {Fumo, Nuvole})
                colori(parte) = Integer16(Draw(2));
            SetMousePointer(platform::MousePointer::Hourglass);
            Dipingi(ShockwaveFlash1(i), colori);
            if (i == FiguraCercata)
                ColoriCercata = colori;
        }
        SetMousePointer(platform::MousePointer::Default);
    });
}

void GrigliaFigure::Dipingi(MovieControl &figura, const Colorazione &colori)
{
    figura.SetBGColor(Colori(0, 0));
    for (int parte = 1; parte <= PartiDipinte; ++parte)
        DipingiParte(figura, parte, Colori(colori(parte), 0),
                     parte == Finestre ? VariabileFinestre() : VariabileColore());
    for (const int parte : {Fumo, Nuvole})
        MostraParte(figura, parte, colori(parte) != 0);
}

// --- The description ---

void GrigliaFigure::ScriviFrase()
{
    QString testo;
    Vettore<int16_t, 8> parteUsata;
    for (int frasi = 0; frasi < QuanteParti; ++frasi) {
        do
            QualeParte = Integer16(Draw(QuanteParti) + 1);
        while (parteUsata(QualeParte) != 0);
        ComponiFrasePositiva();
        testo += InStile(FraseComposta) + QStringLiteral(".\r\n");
        parteUsata(QualeParte) = Usata;
    }
    Text1.SetText(testo);
}

void GrigliaFigure::ComponiFrasePositiva()
{
    const int16_t colore = ColoriCercata(QualeParte);
    if (QualeParte == Fumo)
        FraseComposta = Messaggi(colore == 1 ? 6 : 7);
    else if (QualeParte == Nuvole)
        FraseComposta = colore == 1 ? Messaggi(12) : NuvoleAssenti();
    else
        FraseComposta = AperturaPositiva(QualeParte) + NomeColore(colore, QualeParte);
}

// --- Answers ---

void GrigliaFigure::RispostaEsatta()
{
    ContaEsatto();
    ScriviPannelloEsatti();
}

// By scanning the end of a task is held in the colour of the button: with the same colour for
// buttons at rest and lit ones every choice asks for a new task. Meant.
bool GrigliaFigure::Fatto() const
{
    return Command1(Prossimo).BackColor() == ToColor(ColorePulsantiSelezionati);
}

void GrigliaFigure::FineConScansione()
{
    Evidenzia(Prossimo, true);
}

void GrigliaFigure::Scegli()
{
    if (!Fatto())
        return FiguraScelta();
    SvuotaFigure();
    Evidenzia(Prossimo, false);
    GeneraEsercizio();
}

void GrigliaFigure::EliminaIntruso()
{
    MovieControl &figura = ShockwaveFlash1(PosizioneScansione);
    if (PosizioneScansione == FiguraCercata)
        return RispostaErrata();
    if (!figura.Visible())
        return;
    RispostaEsatta();
    figura.SetVisible(false);
    FigureEliminate = Integer16(FigureEliminate + 1);
    SuonoEsatto();
    if (FigureEliminate == NumeroFigure - 1) {
        RiquadroSullaCercata();
        FineConScansione();
    }
}

// --- The highlight ---

void GrigliaFigure::SistemaRiquadro()
{
    Shape1.SetLeft(ShockwaveFlash1(PosizioneScansione).Left());
    Shape1.SetTop(ShockwaveFlash1(PosizioneScansione).Top());
    Shape1.SetVisible(true);
}

void GrigliaFigure::RiquadroSullaCercata()
{
    Shape1.SetLeft(ShockwaveFlash1(FiguraCercata).Left());
    Shape1.SetTop(ShockwaveFlash1(FiguraCercata).Top());
}

int GrigliaFigure::PassoVerticale() const
{
    return Disegno(Livello).PassoVerticale;
}

void GrigliaFigure::PassoScansione(Gesto verso)
{
    if (Fatto())
        return;
    const bool verticale = verso == Gesto::Giu || verso == Gesto::Su;
    const int passo = (verticale ? PassoVerticale() : 1) * Segno(verso);
    if (passo == 0)
        return;
    // A column without a figure in sight leaves the highlight where it is, after one round.
    PosizioneScansione =
        Integer16(PassoCircolare(PosizioneScansione, NumeroFigure, passo,
                                 [this](int i) { return ShockwaveFlash1(i).Visible(); }));
    SistemaRiquadro();
}

// Unlike elsewhere the keyboard is taken after the step, and not at all when the task is done.
void GrigliaFigure::PassoAutomatico()
{
    if (Fatto())
        return;
    PassoScansione(Gesto::Avanti);
    PrendiFuocoAutomatico();
}
