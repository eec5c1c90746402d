// Two houses stand side by side, equal but for one to four parts. The child clicks a part that
// differs, on either house, and it takes the colour it has on the other one; by scanning the
// outlines of the second house light up in turn.
#include "exercises/form_es3.h"

#include "language/language.h"

#include <utility>

using namespace platform;

namespace {

constexpr DisegnoEsercizio Disegno = {
    .Nome = "FormEs3",
    .Larghezza = 10365,
    .Altezza = 7935,
    .Sfondo = 0x00FFC0C0,
    .Livelli = 4,
    .SogliaSalita = 12,
    .NomeFiguraDaColorare = "mnuPag",
    .NomeMerlino = "PicMerlino",
    .Merlino = {3240, 3960, 2175, 2175},
    .TastieraSinistra = 11160,
    .TastieraManualeAlto = 1800,
    .TastieraAutomaticaAlto = 2640,
};

constexpr DisegnoDifferenze DisegnoParti = {
    .Figura1 = {120, 120, 4935, 6495},
    .Figura2 = {5280, 120, 4935, 6495},
    .NomePannello = "Picture1",
    .Pannello = {2640, 2640, 3855, 3375},
    .PrimaPosizione = 1,
};

} // namespace

FormEs3::FormEs3() : Differenze(Disegno, DisegnoParti)
{
    Command1.Add(Prossimo, Place{7440, 6720, 2775, 615});
    Command1.Add(Aiuto, Place{120, 6720, 975, 615});
    VestiDisegno();
    CollegaLuce();
    Label1.OnMouseMove = OnMouseMove;

    // The house that is clicked is the one that changes.
    ShockwaveFlash1.OnFSCommand = [this](const QString &comando, const QString &) {
        Ripara(ShockwaveFlash1, ColoriFigura1, ColoriFigura2, comando);
    };
    ShockwaveFlash2.OnFSCommand = [this](const QString &comando, const QString &) {
        Ripara(ShockwaveFlash2, ColoriFigura2, ColoriFigura1, comando);
    };
}

void FormEs3::Attiva()
{
    OccupaLoSchermo();
    PicMerlino.SetVisible(false);
    VestiPuntatori();
    VestiSfondo();
    VestiTesto(Label1);
    VestiPulsante(Prossimo);
    VestiIstruzioni(MLSTesto(ModoInput != 0 ? QStringLiteral("0102") : QStringLiteral("0101")));
    CominciaDalPrimoLivello();
    AzzeraContatori();
    AbbassaBarraDiStato();
    if (AvviaScansione()) {
        ColoreScansione = TrovaColoreScansione();
        Command1(Prossimo).SetMousePointer(platform::MousePointer::Default);
    }
    ApriFilemorlene();
    GeneraEsercizio();
}

// --- Making the task ---

void FormEs3::ApriFilemorlene()
{
    // Parts take clicks, with the movie's own pointer (2) or the system's (3).
    const int fotogramma = ModoInput != 0 ? 0 : DisabilitaMousePersonalizzato ? 3 : 2;
    ApriFigura(ShockwaveFlash1);
    ApriFigura(ShockwaveFlash2);
    ShockwaveFlash1.GotoFrame(fotogramma);
    ShockwaveFlash2.GotoFrame(fotogramma);
    DoEvents();
}

void FormEs3::ImpostaColori()
{
    // The first failing statement leaves, and the pointer stays the hourglass: meant.
    Skipping([&] {
        SetMousePointer(platform::MousePointer::Hourglass);
        EstraiFigura1();
        // Scanning lights outlines: smoke and clouds are always there, and never differ.
        if (ModoInput > 0) {
            ColoriFigura1(Fumo) = 1;
            ColoriFigura1(Nuvole) = 1;
        }
        CopiaFigura1();
        CreaDifferenze(ModoInput == 0 ? Nuvole : PartiDipinte);
        // The house whose outlines light up is the one to have them. As they never differ there is
        // nothing to exchange; the rule stands all the same: meant.
        if (ModoInput > 0)
            for (const int parte : {Fumo, Nuvole})
                if (ColoriFigura2(parte) == 0 && ColoriFigura1(parte) == 1)
                    std::swap(ColoriFigura1(parte), ColoriFigura2(parte)); // GCOV_EXCL_LINE
        ColoraPrimomorlena();
        ColoraSecondomorlena();
        SetMousePointer(platform::MousePointer::Default);
    });
}

// --- Answers by pointer ---

void FormEs3::Ripara(MovieControl &figura, Colorazione &suoi, const Colorazione &altri,
                     const QString &comando)
{
    if (!AspettaRisposta())
        return;
    const int parte = comando.toInt();
    if (ParteDiversa(parte) != 1)
        return RispostaErrata();
    suoi(parte) = altri(parte);
    ColoraFigura(figura, suoi);
    DifferenzaTrovata();
}

// --- Scanning ---

void FormEs3::ColoraSelezionato()
{
    for (int parte = 1; parte <= Nuvole; ++parte)
        DipingiContorno(ShockwaveFlash2, parte, QStringLiteral("000000"));
    DipingiContorno(ShockwaveFlash2, Parte(), ColoreScansione);
}
