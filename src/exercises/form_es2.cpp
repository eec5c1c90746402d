// The child reads how a sentence about one part of two houses begins, and ends it with a button:
// "equal" or "different". In a negative sentence the answer turns round.
#include "exercises/form_es2.h"

#include "core/lettering.h"
#include "core/sounds.h"
#include "frame/sentences.h"
#include "platform/host/chance.h"

using namespace platform;

namespace {

constexpr DisegnoEsercizio Disegno = {
    .Nome = "FormEs2",
    .Larghezza = 9180,
    .Altezza = 5790,
    .Sfondo = 0x0000FFFF,
    .Livelli = 3,
    .SogliaSalita = 7,
    .NomeFiguraDaColorare = "mnuPag",
    .NomeMerlino = "picMerlino",
    .Merlino = {4440, 2760, 1335, 2535},
    .TastieraSinistra = 12720,
    .TastieraManualeAlto = 2040,
    .TastieraAutomaticaAlto = 2880,
};

constexpr int Fotogramma = 0; // the figures take no clicks here

// The two words that end a sentence, as pieces of the language; they agree with the part's noun.
struct Risposte {
    int Uguale;
    int Diverso;
};

Risposte RisposteSu(int parte)
{
    switch (parte) {
    case Pareti:
    case Finestre:
        return {17, 18};
    case Porta: // its "same" is the masculine one: meant
        return {8, 19};
    default:
        return {8, 9};
    }
}

// Smoke and clouds are compared too, which no other exercise says of them.
QString Apertura(int parte, bool nega)
{
    switch (parte) {
    case Fumo:
        return Messaggi(nega ? 27 : 28);
    case Nuvole:
        return Messaggi(nega ? 29 : 30);
    default:
        return nega ? AperturaNegativa(parte) : AperturaPositiva(parte);
    }
}

} // namespace

FormEs2::FormEs2()
    : EsercizioConFrase(Disegno, {120, 4080, 7455, 1095}, {120, 120, 3645, 3840}),
      ShockwaveFlash2({*this, "ShockwaveFlash2"}, {3930, 120, 3645, 3840})
{
    Command1.Add(Primo, Place{7800, 2160, 1260, 825}, QStringLiteral("Uguali"));
    Command1.Add(Secondo, Place{7800, 3120, 1260, 825}, QStringLiteral("Diversi"));
    Command1(Secondo).ShareSize(Command1(Primo));
    Command1.Add(Prossimo, Place{7800, 4440, 1260, 735});
    VestiRisposte();
    ShockwaveFlash1.SetSpokenName(QStringLiteral("Prima morlena"));
    ShockwaveFlash2.SetSpokenName(QStringLiteral("Seconda morlena"));
}

// --- Making the task ---

void FormEs2::ApriFilemorlene()
{
    ApriFigura(ShockwaveFlash1, Fotogramma);
    ApriFigura(ShockwaveFlash2, Fotogramma);
    DoEvents();
}

void FormEs2::ImpostaColori()
{
    // The first failing statement leaves, and the pointer stays the hourglass: meant.
    Skipping([&] {
        SetMousePointer(platform::MousePointer::Hourglass);
        for (int parte = 1; parte <= PartiDipinte; ++parte)
            PreparaParte(parte, 4, 1);
        for (const int parte : {Fumo, Nuvole})
            PreparaParte(parte, 2, 0);
        ColoraFigura(ShockwaveFlash1, Colore1);
        ColoraFigura(ShockwaveFlash2, Colore2);
        SetMousePointer(platform::MousePointer::Default);
    });
}

// One part on both figures, of as many values from the first one on.
void FormEs2::PreparaParte(int parte, int valori, int primo)
{
    Diverso(parte) = Integer16(Draw(2));
    Usata(parte) = 0;
    Colore1(parte) = Integer16(Draw(valori) + primo);
    Colore2(parte) = Colore1(parte);
    if (Diverso(parte) == 0)
        return;
    do
        Colore2(parte) = Integer16(Draw(valori) + primo);
    while (Colore2(parte) == Colore1(parte));
}

void FormEs2::ScriviFrase()
{
    const bool nega = Livello == 3 ? Draw(10) % 2 != 0 : Livello == 2;
    ScegliParte();
    Frase = Apertura(QualeParte, nega);
    IntitolaRisposte();
    // Stays turned round until the next colouring, and nobody asks the part again before it.
    if (nega)
        Diverso(QualeParte) = Diverso(QualeParte) == 0 ? 1 : 0;
}

// A part that has not been asked since the last colouring: four tasks share eight parts.
void FormEs2::ScegliParte()
{
    do
        QualeParte = Integer16(Draw(8) + 1);
    while (Usata(QualeParte) == 1);
    Usata(QualeParte) = 1;
}

// The answers agree with the noun of the part.
void FormEs2::IntitolaRisposte()
{
    const Risposte risposte = RisposteSu(QualeParte);
    Command1(Primo).SetCaption(Messaggi(risposte.Uguale));
    Command1(Secondo).SetCaption(Messaggi(risposte.Diverso));
}

void FormEs2::MostraFrase()
{
    Frase = InStile(Frase);
    // Capitals are for the answers too; small letters leave them as the language has them.
    if (TipoCarattere == QStringLiteral("maiuscolo"))
        for (const int risposta : {Primo, Secondo})
            Command1(risposta).SetCaption(InMaiuscolo(Command1(risposta).Caption()));
    Label1.SetCaption(Frase);
}

// A change of level makes a task that nobody sees before the one that is shown: meant.
void FormEs2::DopoIlCambio()
{
    GeneraEsercizio();
}

// --- Answers by pointer ---

void FormEs2::RispostaEsattaConPuntatore()
{
    ContaEsatto();
    // The sentence stands complete on the screen; by scanning it does not: meant.
    Label1.SetCaption(Label1.Caption() + Messaggi(0) + Command1(IndiceGiusto()).Caption());
    PremiaSeServe();
    ScriviPannelloEsatti();
    SuonoEsatto();
    Command1(Primo).SetEnabled(false);
    Command1(Secondo).SetEnabled(false);
    Command1(Prossimo).SetEnabled(true);
}
