// The child reads a sentence about the house, or two joined by "and", and says whether it is true.
// A wrong answer ends nothing: the task stays until the right button is pressed.
#include "exercises/form_es1.h"

#include "core/lettering.h"
#include "core/sounds.h"
#include "frame/sentences.h"
#include "platform/host/chance.h"

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
    .NomeMerlino = "picMerlino",
    .Merlino = {4440, 2760, 1335, 2535},
    .TastieraSinistra = 12720,
    .TastieraManualeAlto = 2040,
    .TastieraAutomaticaAlto = 2880,
};

constexpr int Fotogramma = 0; // the figure takes no clicks here

} // namespace

FormEs1::FormEs1() : EsercizioConFrase(Disegno, {4440, 120, 3375, 2415}, {120, 120, 4215, 5295})
{
    Command1.Add(Primo, Place{5880, 2640, 1935, 885}, QStringLiteral("Vero"));
    Command1.Add(Secondo, Place{5880, 3600, 1935, 885}, QStringLiteral("Falso"));
    Command1(Secondo).ShareSize(Command1(Primo));
    Command1.Add(Prossimo, Place{5880, 4560, 1935, 855});
    VestiRisposte();
    ShockwaveFlash1.SetSpokenName(QStringLiteral("Morlena"));
}

// --- Making the task ---

void FormEs1::MostraFrase()
{
    Frase = InStile(Frase) + QLatin1Char('.');
    Label1.SetCaption(Frase);
}

void FormEs1::DopoIlCambio() {}

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
        for (int parte = 1; parte <= PartiDipinte; ++parte)
            ColoreParte(parte) = Integer16(Draw(4) + 1);
        ColoreParte(Fumo) = Integer16(Draw(2));
        ColoreParte(Nuvole) = Integer16(Draw(2));
        ColoraFigura(ShockwaveFlash1, ColoreParte);
        SetMousePointer(platform::MousePointer::Default);
    });
}

void FormEs1::ScriviFrase()
{
    const auto afferma = [this] { ComponiFrase(false); };
    const auto nega = [this] { ComponiFrase(true); };
    const auto aCaso = [this] { ComponiFrase(Draw(2) != 0); };
    switch (Livello) {
    case 1:
        return ScriviFraseSemplice(afferma);
    case 2:
        return ScriviFraseSemplice(nega);
    case 3:
        return ScriviFraseSemplice(aCaso);
    case 4:
        return ScriviFraseDoppia(afferma, afferma);
    case 5:
        return ScriviFraseDoppia(nega, nega);
    case 6:
        // The first statement denies in any case; the drawn one only spends its draws: meant.
        return ScriviFraseDoppia(
            [&] {
                aCaso();
                nega();
            },
            aCaso);
    default:
        return;
    }
}

void FormEs1::ScriviFraseSemplice(const std::function<void()> &componi)
{
    IndiceEsatto = Integer16(Draw(2));
    QualeParte = Integer16(Draw(8) + 1);
    componi();
    Frase = FraseComposta;
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
    const int16_t suo = ColoreParte(QualeParte);
    int16_t colore = suo;
    while (colore == suo)
        colore = Integer16(Draw(4) + 1);
    return colore;
}

// One statement on `QualeParte`, true or false by `IndiceEsatto`.
void FormEs1::ComponiFrase(bool nega)
{
    if (QualeParte > PartiDipinte)
        return ComponiFrasePresenza();
    const bool suo = (IndiceEsatto == 0) != nega;
    const QString apertura = nega ? AperturaNegativa(QualeParte) : AperturaPositiva(QualeParte);
    FraseComposta =
        apertura + NomeColore(suo ? ColoreParte(QualeParte) : AltroColore(), QualeParte);
}

void FormEs1::ComponiFrasePresenza()
{
    const bool presente = ColoreParte(QualeParte) != 0;
    FraseComposta = FrasePresenza(QualeParte, presente == (IndiceEsatto == 0));
}

// --- Answers by pointer ---

void FormEs1::RispostaEsattaConPuntatore()
{
    ContaEsatto();
    ScriviPannelloEsatti();
    SuonoEsatto();
    Command1(Primo).SetEnabled(false);
    Command1(Secondo).SetEnabled(false);
    PremiaSeServe();
    Command1(Prossimo).SetEnabled(true);
}
