// The child reads a sentence about the house, or two joined by "and", and says whether it is true.
// A wrong answer ends nothing: the task stays until the right button is pressed.
#include "exercises/form_es1.h"

#include "core/lettering.h"
#include "core/sounds.h"
#include "frame/reward.h"
#include "frame/sentences.h"
#include "platform/chance.h"

using namespace platform;

namespace {

constexpr DisegnoEsercizio Disegno = {
    .Nome = "FormEs1",
    .Larghezza = 7935,
    .Altezza = 6075,
    .Sfondo = 0x00FF0000,
    .Livelli = 6,
    .SogliaSalita = 7,
    .NomeFiguraDaColorare = "mnuCol",
};

constexpr int Vero = 0; // indexes of `Command1`
constexpr int Falso = 1;
constexpr int Prossimo = 2;

constexpr int TurniPerColorazione = 4;
constexpr int Fotogramma = 0; // the figure takes no clicks here

} // namespace

FormEs1::FormEs1()
    : FinestraEsercizio(Disegno), Label1({*this, "Label1"}, {4440, 120, 3375, 2415}),
      ShockwaveFlash1({*this, "ShockwaveFlash1"}, {120, 120, 4215, 5295})
{
    Command1.Add(Vero, Place{5880, 2640, 1935, 885}, QStringLiteral("Vero"));
    Command1.Add(Falso, Place{5880, 3600, 1935, 885}, QStringLiteral("Falso"));
    Command1.Add(Prossimo, Place{5880, 4560, 1935, 855});
    Command1(Prossimo).SetPicture(QStringLiteral("prossimo"));
    Command1(Prossimo).SetEnabled(false);
    for (Button &pulsante : Command1) {
        pulsante.SetFontSize(40);
        pulsante.SetFontBold(true);
        pulsante.SetMousePointer(platform::MousePointer::Custom);
    }
    Label1.SetBackColor(0x00FFFFFF);
    Label1.SetFramed(true);

    Command1.OnClick = [this](int indice) { Risposta(indice); };
    Command1.OnMouseMove = [this](int indice) {
        if (ModoInput == 0)
            Skipping([&] { AccendiPulsante(indice); });
    };
    OnMouseMove = Label1.OnMouseMove = [this] {
        if (ModoInput == 0)
            Skipping([&] { SpegniPulsanti(); });
    };
}

void FormEs1::Attiva()
{
    OccupaLoSchermo();
    Command1(Vero).SetPicture({});
    Command1(Falso).SetPicture({});
    picMerlino.SetVisible(false);
    VestiPuntatori();
    VestiSfondo();
    VestiTesto(Label1);
    VestiPulsanti();
    CominciaDalPrimoLivello();
    PreparaScansione();
    AzzeraContatori();
    AbbassaBarraDiStato();
    ApriFilemorlene();
    GiroColori = 0;
    GeneraEsercizio();
}

// --- Making the task ---

void FormEs1::GeneraEsercizio()
{
    if (PassaggioLivelli)
        CambiaLivello([] {});
    if (GiroColori == 0)
        ImpostaColori();
    Command1(Vero).SetEnabled(true);
    Command1(Falso).SetEnabled(true);
    Command1(Prossimo).SetEnabled(false);
    GiroColori = Integer16((GiroColori + 1) % TurniPerColorazione);
    ScriviFrase();
    Frase = InStile(Frase) + QLatin1Char('.');
    Label1.SetCaption(Frase);
}

void FormEs1::ApriFilemorlene()
{
    ApriFigura(ShockwaveFlash1, Fotogramma);
    DoEvents();
}

void FormEs1::ImpostaColori()
{
    // The first failing statement leaves, and the pointer stays the hourglass: meant.
    Skipping([&] {
        SetMousePointer(platform::MousePointer::Hourglass);
        for (size_t parte = 1; parte <= PartiDipinte; ++parte)
            ColoreParte.at(parte) = Integer16(Draw(4) + 1);
        ColoreParte[Fumo] = Integer16(Draw(2));
        ColoreParte[Nuvole] = Integer16(Draw(2));
        ColoraFigura(ShockwaveFlash1, ColoreParte);
        SetMousePointer(platform::MousePointer::Default);
    });
}

void FormEs1::ScriviFrase()
{
    switch (Livello) {
    case 1:
        return ScriviFrase1();
    case 2:
        return ScriviFrase2();
    case 3:
        return ScriviFrase3();
    case 4:
        return ScriviFrase4();
    case 5:
        return ScriviFrase5();
    case 6:
        return ScriviFrase6();
    default:
        return;
    }
}

void FormEs1::ScriviFrase1()
{
    IndiceEsatto = Integer16(Draw(2));
    QualeParte = Integer16(Draw(8) + 1);
    ComponiFrasePositiva();
    Frase = FraseComposta;
}

void FormEs1::ScriviFrase2()
{
    IndiceEsatto = Integer16(Draw(2));
    QualeParte = Integer16(Draw(8) + 1);
    ComponiFraseNegativa();
    Frase = FraseComposta;
}

void FormEs1::ScriviFrase3()
{
    IndiceEsatto = Integer16(Draw(2));
    QualeParte = Integer16(Draw(8) + 1);
    if (Draw(2) != 0)
        ComponiFraseNegativa();
    else
        ComponiFrasePositiva();
    Frase = FraseComposta;
}

void FormEs1::ScriviFrase4()
{
    ScriviFraseDoppia([this] { ComponiFrasePositiva(); }, [this] { ComponiFrasePositiva(); });
}

void FormEs1::ScriviFrase5()
{
    ScriviFraseDoppia([this] { ComponiFraseNegativa(); }, [this] { ComponiFraseNegativa(); });
}

void FormEs1::ScriviFrase6()
{
    const auto aCaso = [this] {
        if (Draw(2) != 0)
            ComponiFraseNegativa();
        else
            ComponiFrasePositiva();
    };
    ScriviFraseDoppia(
        [&] {
            // The first statement is negative in any case; the drawn one only spends its draws:
            // meant.
            aCaso();
            ComponiFraseNegativa();
        },
        aCaso);
}

void FormEs1::ScriviFraseDoppia(const std::function<void()> &prima,
                                const std::function<void()> &seconda)
{
    const auto verita = Integer16(Draw(2));
    IndiceEsatto = verita;
    const auto parte1 = Integer16(Draw(8) + 1);
    auto parte2 = parte1;
    while (parte2 == parte1)
        parte2 = Integer16(Draw(8) + 1);
    int16_t falsa1 = 0;
    int16_t falsa2 = 0;
    if (verita != 0) {
        falsa1 = Integer16(Draw(2));
        for (;;) {
            falsa2 = Integer16(Draw(2));
            // The first is added to itself, not to the second: in a false sentence the first
            // statement is always false, the second false or true: meant.
            if (falsa1 + falsa1 != 0)
                break;
            falsa1 = Integer16(Draw(2));
        }
    }
    QualeParte = parte1;
    IndiceEsatto = falsa1;
    prima();
    Frase = FraseComposta;
    QualeParte = parte2;
    IndiceEsatto = falsa2;
    seconda();
    Frase = Frase + Congiunzione() + InMinuscolo(FraseComposta);
    IndiceEsatto = verita;
}

// A colour number other than the part's own.
int16_t FormEs1::AltroColore() const
{
    const int16_t suo = ColoreParte.at(static_cast<size_t>(QualeParte));
    int16_t colore = suo;
    while (colore == suo)
        colore = Integer16(Draw(4) + 1);
    return colore;
}

void FormEs1::ComponiFrasePositiva()
{
    FraseComposta.clear();
    if (QualeParte > PartiDipinte)
        return ComponiFrasePresenza();
    const QString apertura = AperturaPositiva(QualeParte);
    const int16_t suo = ColoreParte.at(static_cast<size_t>(QualeParte));
    FraseComposta = apertura + NomeColore(IndiceEsatto == 0 ? suo : AltroColore(), QualeParte);
}

void FormEs1::ComponiFraseNegativa()
{
    FraseComposta.clear();
    if (QualeParte > PartiDipinte)
        return ComponiFrasePresenza();
    const QString apertura = AperturaNegativa(QualeParte);
    const int16_t suo = ColoreParte.at(static_cast<size_t>(QualeParte));
    FraseComposta = apertura + NomeColore(IndiceEsatto == 1 ? suo : AltroColore(), QualeParte);
}

void FormEs1::ComponiFrasePresenza()
{
    const bool presente = ColoreParte.at(static_cast<size_t>(QualeParte)) != 0;
    FraseComposta = FrasePresenza(QualeParte, presente == (IndiceEsatto == 0));
}

// --- Answers by pointer ---

void FormEs1::Risposta(int indice)
{
    if (ModoInput != 0)
        return;
    if (indice == Prossimo)
        ProssimoEsercizio();
    else if (indice == IndiceEsatto)
        RispostaEsattaConPuntatore();
    else
        RispostaErrata();
}

void FormEs1::ProssimoEsercizio()
{
    if (FiguraDaRicaricare)
        ApriFilemorlene();
    GeneraEsercizio();
}

void FormEs1::RispostaEsattaConPuntatore()
{
    ContaEsatto();
    ScriviPannelloEsatti();
    SuonoEsatto();
    Command1(Vero).SetEnabled(false);
    Command1(Falso).SetEnabled(false);
    if (ContaVersoIlPremio(ContaPremio))
        MostraPremio(ShockwaveFlash1, Label1, GiroColori, FiguraDaRicaricare);
    Command1(Prossimo).SetEnabled(true);
}

void FormEs1::RispostaErrata()
{
    SuonoErrato();
    ContaErrato();
    ScriviPannelloErrati();
}

// --- Answers by scanning ---

void FormEs1::PassoScansione(int verso)
{
    // On the next-task button the highlight waits for the child.
    if (BottoneScansione != Prossimo)
        SpostaEvidenza(verso);
}

void FormEs1::Scegli()
{
    if (BottoneScansione == Prossimo) {
        Evidenzia(Prossimo, false);
        BottoneScansione = Vero;
        Evidenzia(Vero, true);
        ProssimoEsercizio();
    } else if (BottoneScansione != IndiceEsatto) {
        RispostaErrata();
    } else {
        // Unlike by pointer the reward comes first, and the answer buttons stay enabled: meant.
        ContaEsatto();
        if (ContaVersoIlPremio(ContaPremio))
            MostraPremio(ShockwaveFlash1, Label1, GiroColori, FiguraDaRicaricare);
        ScriviPannelloEsatti();
        SuonoEsatto();
        Evidenzia(BottoneScansione, false);
        BottoneScansione = Prossimo;
        Evidenzia(Prossimo, true);
    }
}
