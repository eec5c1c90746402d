// Two houses stand side by side, equal but for one to four parts. The child chooses the picture of
// a part that differs, in the row under the houses, and the second house is repaired.
#include "exercises/form_es8.h"

#include "language/language.h"

#include <array>

using namespace platform;

namespace {

constexpr DisegnoEsercizio Disegno = {
    .Nome = "FormEs8",
    .Larghezza = 10335,
    .Altezza = 7050,
    .Sfondo = 0x00FFC0C0,
    .Livelli = 4,
    .SogliaSalita = 12,
    .NomeFiguraDaColorare = "mnuPag",
    .NomeMerlino = "PicMerlino",
    .Merlino = {4080, 3840, 2175, 2055},
    .TastieraSinistra = 10320,
    .TastieraManualeAlto = 3600,
    .TastieraAutomaticaAlto = 4920,
};

constexpr DisegnoDifferenze DisegnoParti = {
    .Figura1 = {120, 120, 4935, 5655},
    .Figura2 = {5280, 120, 4935, 5655},
    .NomePannello = "Picture2",
    .Pannello = {3120, 1440, 3855, 3375},
    .PrimaPosizione = 0,
};

constexpr int SpessoreCornice = 5;    // pixels
constexpr double SopraLaBarra = 20;   // twips between the bar and the status bar
constexpr double PassoImmagine = 720; // twips

struct Immagine {
    const char *Disegno;
    const char *Nome; // as a screen reader says it
};
// Picture i shows part i + 1.
constexpr std::array<Immagine, 8> Immagini = {{{"parte_comignolo", "Comignolo"},
                                               {"parte_tetto", "Tetto"},
                                               {"parte_pareti", "Pareti"},
                                               {"parte_finestre", "Finestre"},
                                               {"parte_porta", "Porta"},
                                               {"parte_gradino", "Gradino"},
                                               {"parte_fumo", "Fumo"},
                                               {"parte_nuvole", "Nuvole"}}};

} // namespace

FormEs8::FormEs8()
    : Differenze(Disegno, DisegnoParti), Picture1({*this, "Picture1"}, {0, 5880, 10335, 615}),
      Image1(Picture1.Inside("Image1")), Shape1(Picture1.Inside("Shape1"))
{
    Picture1.SetSpokenName(QStringLiteral("Parti"));
    for (int i = 0; i < static_cast<int>(Immagini.size()); ++i) {
        const Immagine &immagine = Immagini.at(static_cast<size_t>(i));
        Image &figura = Image1.Add(i, Place{120 + PassoImmagine * i, 0, 615, 615},
                                   QString::fromLatin1(immagine.Disegno));
        figura.SetSpokenName(QString::fromLatin1(immagine.Nome));
        figura.SetMousePointer(platform::MousePointer::Custom);
    }
    for (int i = 0; i < static_cast<int>(Immagini.size()); ++i) {
        Shape &cornice = Shape1.Add(i, Place{120 + PassoImmagine * i, 0, 615, 615});
        cornice.SetBorderWidth(SpessoreCornice);
        cornice.SetVisible(false);
    }
    Command1.LieIn(Picture1);
    Command1.Add(Prossimo, Place{7440, 0, 2775, 615});
    Command1.Add(Aiuto, Place{6240, 0, 975, 615});
    VestiDisegno();

    CollegaLuce();
    Label1.OnMouseMove = OnMouseMove;
    OnMouseMove = [this] {
        if (ModoInput == 0)
            Skipping([&] {
                TogliCornici();
                SpegniPulsanti();
            });
    };
    // In a scanning mode this wipes the highlight until the next step: meant.
    Picture1.OnMouseMove = [this] { TogliCornici(); };
    Image1.OnMouseMove = [this](int indice) {
        if (ModoInput == 0)
            Incornicia(indice);
    };
    Image1.OnClick = [this](int indice) { Ripara(indice); };
}

void FormEs8::Attiva()
{
    OccupaLoSchermo();
    PicMerlino.SetVisible(false);
    VestiPuntatori();
    if (DisabilitaMousePersonalizzato)
        for (Image &immagine : Image1)
            immagine.SetMousePointer(platform::MousePointer::Default);
    VestiSfondo();
    VestiTesto(Label1);
    for (Shape &cornice : Shape1) {
        cornice.SetBorderColor(ToColor(ColorePulsantiSelezionati));
        cornice.SetVisible(false);
    }
    VestiPulsante(Prossimo);
    VestiIstruzioni(MLSTesto(QStringLiteral("0073")));
    CominciaDalPrimoLivello();
    AzzeraContatori();
    AbbassaBarraDiStato();
    Picture1.SetTop(StatusBar1.Top() - Picture1.Height() - SopraLaBarra);
    // The keyboard targets' edge can be seen: they take the window's colour too.
    for (PictureBox *riquadro : {&Picture1, &PictureScansioneManuale, &PictureScansioneAutomatica})
        riquadro->SetBackColor(BackColor());
    if (AvviaScansione()) {
        ColoreScansione = TrovaColoreScansione();
        Command1(Prossimo).SetMousePointer(platform::MousePointer::Default);
    }
    ApriFilemorlene();
    GeneraEsercizio();
}

// --- Making the task ---

void FormEs8::ApriFilemorlene()
{
    ApriFigura(ShockwaveFlash1);
    ApriFigura(ShockwaveFlash2);
    DoEvents();
}

void FormEs8::ImpostaColori()
{
    // The first failing statement leaves, and the pointer stays the hourglass: meant.
    Skipping([&] {
        SetMousePointer(platform::MousePointer::Hourglass);
        EstraiFigura1();
        CopiaFigura1();
        CreaDifferenze(Nuvole);
        ColoraPrimomorlena();
        ColoraSecondomorlena();
        SetMousePointer(platform::MousePointer::Default);
    });
}

// --- Answers by pointer ---

void FormEs8::Ripara(int immagine)
{
    if (!AspettaRisposta())
        return;
    const int parte = immagine + 1;
    if (ParteDiversa(parte) != 1)
        return RispostaErrata();
    ColoriFigura2(parte) = ColoriFigura1(parte);
    ColoraSecondomorlena();
    DifferenzaTrovata();
}

// --- Frames, under the pointer and by scanning ---

void FormEs8::Incornicia(int immagine)
{
    if (!Shape1(immagine).Visible())
        Shape1(immagine).SetVisible(true);
    for (Shape &cornice : Shape1)
        if (cornice.Index() != immagine)
            cornice.SetVisible(false);
}

void FormEs8::TogliCornici()
{
    for (Shape &cornice : Shape1)
        cornice.SetVisible(false);
}

void FormEs8::ColoraSelezionato()
{
    Incornicia(PosizioneScansione);
}
