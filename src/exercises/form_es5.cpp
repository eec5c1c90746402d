// The child sorts houses by a sentence that stays for the whole series. The outcome is drawn first,
// and the figure is then made so that the sentence holds or fails. One clause, "and", "or" and
// "either, but not both" on levels 1 to 4.
#include "exercises/form_es5.h"

#include "core/lettering.h"
#include "core/sounds.h"
#include "frame/sentences.h"
#include "language/language.h"
#include "platform/host/chance.h"

using namespace platform;

namespace {

constexpr DisegnoEsercizio Disegno = {
    .Nome = "FormEs5",
    .Larghezza = 8265,
    .Altezza = 6075,
    .Sfondo = 0x00FFC0FF,
    .Livelli = 4,
    .SogliaSalita = 20,
    .NomeFiguraDaColorare = "mnupag",
    .NomeMerlino = "PicMerlino",
    .Merlino = {5160, 3480, 1575, 1935},
    .TastieraSinistra = 12720,
    .TastieraManualeAlto = 2040,
    .TastieraAutomaticaAlto = 2880,
};

constexpr int PostiPerInsieme = 10; // a full set ends the series
constexpr int PostiPerFila = 5;
constexpr double PassoOrizzontale = 720;
constexpr double PassoVerticale = 960;

constexpr int SenzaNome = 9; // a part that only the redraw of level 2 can name

int16_t EstraiValore(int oggetto, int primaSenzaColore = Fumo)
{
    return oggetto < primaSenzaColore ? Integer16(Draw(4) + 1) : Integer16(Draw(2));
}

QString Testo(int chiave)
{
    return MLSTesto(QStringLiteral("%1").arg(chiave, 4, 10, QLatin1Char('0')));
}

} // namespace

FormEs5::FormEs5()
    : TreBottoni(Disegno, {120, 3480, 3135, 1935}, {3480, 3480, 1455, 1935}),
      ShockwaveFlash2(*this, "ShockwaveFlash2"), ShockwaveFlash3(*this, "ShockwaveFlash3")
{
    for (int i = 0; i < PostiPerInsieme; ++i) {
        const double destra = i % PostiPerFila * PassoOrizzontale;
        const double giu = i / PostiPerFila * PassoVerticale; // NOLINT(bugprone-integer-division)
        ShockwaveFlash2.Add(i, Place{240 + destra, 360 + giu, 615, 855});
        ShockwaveFlash3.Add(i, Place{4320 + destra, 360 + giu, 615, 855});
        ShockwaveFlash2(i).SetSpokenName(QStringLiteral("Morlena del sì %1").arg(i + 1));
        ShockwaveFlash3(i).SetSpokenName(QStringLiteral("Morlena del no %1").arg(i + 1));
    }
    Command1.Add(Primo, Place{1560, 2640, 855, 735});
    Command1.Add(Secondo, Place{5640, 2640, 855, 735});
    Command1.Add(Prossimo, Place{6840, 4560, 1335, 855});
    Command1(Primo).SetPicture(QStringLiteral("si"));
    Command1(Primo).SetSpokenName(QStringLiteral("Sì"));
    Command1(Secondo).SetPicture(QStringLiteral("no"));
    Command1(Secondo).SetSpokenName(QStringLiteral("No"));
    Command1(Prossimo).SetPicture(QStringLiteral("prossimo"));
    Command1(Prossimo).SetSpokenName(QStringLiteral("Avanti"));
    Command1(Prossimo).SetEnabled(false);
    ShockwaveFlash1.SetSpokenName(QStringLiteral("Morlena"));
    for (Button &pulsante : Command1)
        pulsante.SetMousePointer(platform::MousePointer::Custom);

    OnLoad = [this] {
        Carica();
        NascondiInsiemi();
    };
}

void FormEs5::NascondiInsiemi()
{
    for (int i = 0; i < PostiPerInsieme; ++i) {
        ShockwaveFlash2(i).SetVisible(false);
        ShockwaveFlash3(i).SetVisible(false);
    }
}

void FormEs5::Attiva()
{
    OccupaLoSchermo();
    PicMerlino.SetVisible(false);
    VestiPuntatori();
    VestiSfondo();
    VestiTesto(Label1);
    VestiPulsanti();
    CominciaDalPrimoLivello();
    PreparaScansione();
    AzzeraContatori();
    AbbassaBarraDiStato();
    ApriFilemorlene();
    GeneraEsercizio();
}

// --- The series ---

void FormEs5::ApriFilemorlene()
{
    ApriFigura(ShockwaveFlash1);
    for (int i = 0; i < PostiPerInsieme; ++i) {
        ApriFigura(ShockwaveFlash2(i));
        ApriFigura(ShockwaveFlash3(i));
    }
    DoEvents();
}

void FormEs5::GeneraEsercizio()
{
    if (PassaggioLivelli)
        CambiaLivello([] {});
    NascondiInsiemi();
    Command1(Primo).SetEnabled(true);
    Command1(Secondo).SetEnabled(true);
    Command1(Prossimo).SetEnabled(false);
    NumeroSi = 0;
    NumeroNo = 0;
    ScriviFrase();
    Frase = InStile(Frase) + QLatin1Char('.');
    Label1.SetCaption(Frase);
    ImpostaColori();
    ShockwaveFlash1.SetVisible(true);
}

// --- The sentence ---

void FormEs5::ScriviFrase()
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
    default:
        return;
    }
}

void FormEs5::EstraiPrimo()
{
    PrimoOggetto = Integer16(Draw(8) + 1);
    PrimoColore = EstraiValore(PrimoOggetto);
    ComponiFrasePositiva1();
}

// The part that nothing has is refused beside the chimney only: meant.
bool FormEs5::DaScartare() const
{
    return (SecondoOggetto == SenzaNome && PrimoOggetto == Comignolo) ||
           SecondoOggetto == PrimoOggetto;
}

void FormEs5::ScriviFrase1()
{
    EstraiPrimo();
    Frase = FraseComposta;
}

void FormEs5::ScriviFrase2()
{
    EstraiPrimo();
    Frase = FraseComposta;
    SecondoOggetto = Integer16(Draw(8) + 1);
    SecondoColore = EstraiValore(SecondoOggetto);
    while (DaScartare()) {
        // Redrawn it may be a part that nothing has, and smoke may get a colour: meant.
        SecondoOggetto = Integer16(Draw(SenzaNome) + 1);
        SecondoColore = EstraiValore(SecondoOggetto, Nuvole);
    }
    ComponiFrasePositiva2();
    Frase += InMinuscolo(FraseComposta);
}

void FormEs5::ScriviFrase3()
{
    EstraiPrimo();
    Frase = Testo(82) + InMinuscolo(FraseComposta);
    do
        SecondoOggetto = Integer16(Draw(8) + 1);
    while (DaScartare());
    SecondoColore = EstraiValore(SecondoOggetto);
    ComponiFrasePositiva3();
    Frase += InMinuscolo(FraseComposta);
}

void FormEs5::ScriviFrase4()
{
    EstraiPrimo();
    Frase = Testo(83) + InMinuscolo(FraseComposta);
    SecondoOggetto = Integer16(Draw(8) + 1);
    SecondoColore = EstraiValore(SecondoOggetto);
    while (DaScartare()) {
        SecondoOggetto = Integer16(Draw(8) + 1);
        SecondoColore = EstraiValore(SecondoOggetto);
    }
    ComponiFrasePositiva4();
    Frase += InMinuscolo(FraseComposta);
}

void FormEs5::ComponiFrasePositiva1()
{
    if (PrimoOggetto == Fumo)
        FraseComposta = Messaggi(PrimoColore == 1 ? 10 : 11);
    else if (PrimoOggetto == Nuvole)
        FraseComposta = Messaggi(PrimoColore == 1 ? 12 : 13);
    else
        FraseComposta = AperturaPositiva(PrimoOggetto) + NomeColore(PrimoColore, PrimoOggetto);
}

// The colour of the step takes another column of the adjectives on each level: masculine plural, as
// the level's own noun wants it, masculine singular, and on level 4 the feminine, which does not
// agree. Meant.

void FormEs5::ComponiFrasePositiva2()
{
    FraseComposta.clear();
    if (SecondoOggetto == Fumo)
        FraseComposta = Messaggi(14) + InMinuscolo(Messaggi(SecondoColore == 1 ? 10 : 11));
    else if (SecondoOggetto == Nuvole)
        FraseComposta = Messaggi(14) + InMinuscolo(Messaggi(SecondoColore == 1 ? 12 : 13));
    else if (SecondoOggetto <= PartiDipinte)
        FraseComposta = Messaggi(14) + Testo(83 + SecondoOggetto) +
                        (SecondoOggetto == Gradino ? Colori(SecondoColore, 2)
                                                   : NomeColore(SecondoColore, SecondoOggetto));
}

// Behind "or" the chimney opens with a text of its own, which differs from level to level.
QString FormEs5::AperturaSeconda(int testoDelComignolo) const
{
    return SecondoOggetto == Comignolo ? Testo(testoDelComignolo)
                                       : InMinuscolo(AperturaPositiva(SecondoOggetto));
}

void FormEs5::ComponiFrasePositiva3()
{
    const QString o = Messaggi(32) + Messaggi(33);
    if (SecondoOggetto == Fumo)
        FraseComposta = o + InMinuscolo(Messaggi(SecondoColore == 1 ? 6 : 7));
    else if (SecondoOggetto == Nuvole)
        FraseComposta = o + (SecondoColore == 1 ? InMinuscolo(Messaggi(12)) : Testo(91));
    else
        FraseComposta = o + AperturaSeconda(90) + NomeColore(SecondoColore, SecondoOggetto);
}

void FormEs5::ComponiFrasePositiva4()
{
    const QString &o = Messaggi(32);
    const QString virgola = QStringLiteral(", ");
    FraseComposta.clear();
    if (SecondoOggetto == Fumo)
        FraseComposta = SecondoColore == 1 ? o + InMinuscolo(Messaggi(6)) + virgola + Messaggi(31)
                                           : o + InMinuscolo(Messaggi(7)) + virgola + Messaggi(34);
    // The clouds' rows ask for a part that the draw cannot give, so that a clause about clouds is
    // never written, while the figure obeys it: meant.
    else if (SecondoOggetto == SenzaNome)
        FraseComposta =
            o + InMinuscolo(Messaggi(SecondoColore == 1 ? 12 : 13)) + virgola + Messaggi(34);
    else if (SecondoOggetto <= PartiDipinte)
        FraseComposta = o + AperturaSeconda(92) +
                        (SecondoOggetto == Gradino ? Colori(SecondoColore, 3)
                                                   : NomeColore(SecondoColore, SecondoOggetto)) +
                        virgola + Messaggi(0) + Messaggi(31);
}

// --- The figure ---

void FormEs5::ImpostaColori()
{
    // The first failing statement leaves, with the picture of the figure before and the pointer the
    // hourglass: meant.
    Skipping([&] {
        SetMousePointer(platform::MousePointer::Hourglass);
        IndiceEsatto = Integer16(Draw(100) % 2);
        for (int parte = 1; parte <= Nuvole; ++parte)
            ColoreParte(parte) = EstraiValore(parte);
        switch (Livello) {
        case 1:
            FiguraPerUna();
            break;
        case 2:
            FiguraPerE();
            break;
        case 3:
            FiguraPerO();
            break;
        case 4:
            FiguraPerUnaSola();
            break;
        default:
            break;
        }
        ColoraFigura(ShockwaveFlash1, ColoreParte);
        SetMousePointer(platform::MousePointer::Default);
    });
}

bool FormEs5::PrimaVale() const
{
    return ColoreParte(PrimoOggetto) == PrimoColore;
}

bool FormEs5::SecondaVale() const
{
    return ColoreParte(SecondoOggetto) == SecondoColore;
}

void FormEs5::RendiVeraLaPrima()
{
    ColoreParte(PrimoOggetto) = PrimoColore;
}

void FormEs5::RendiVeraLaSeconda()
{
    ColoreParte(SecondoOggetto) = SecondoColore;
}

void FormEs5::RiestraiEntrambe()
{
    ColoreParte(PrimoOggetto) = EstraiValore(PrimoOggetto);
    ColoreParte(SecondoOggetto) = EstraiValore(SecondoOggetto);
}

void FormEs5::FiguraPerUna()
{
    if (IndiceEsatto == 0)
        RendiVeraLaPrima();
    else
        while (PrimaVale())
            ColoreParte(PrimoOggetto) = EstraiValore(PrimoOggetto);
}

void FormEs5::FiguraPerE()
{
    if (IndiceEsatto == 0) {
        RendiVeraLaPrima();
        RendiVeraLaSeconda();
        return;
    }
    for (;;) {
        // Both are looked at, whatever the first says: a part that is not there always fails.
        const bool prima = PrimaVale();
        const bool seconda = SecondaVale();
        if (!prima || !seconda)
            return;
        RiestraiEntrambe();
    }
}

void FormEs5::FiguraPerO()
{
    while (PrimaVale() || SecondaVale())
        RiestraiEntrambe();
    if (IndiceEsatto != 0)
        return;
    const int quali = Draw(150) % 3;
    if (quali != 0)
        RendiVeraLaPrima();
    if (quali != 1)
        RendiVeraLaSeconda();
}

void FormEs5::FiguraPerUnaSola()
{
    while (PrimaVale() || SecondaVale())
        RiestraiEntrambe();
    const int quale = Draw(100) % 2;
    if (quale == 1)
        RendiVeraLaPrima();
    // One of the two when the sentence holds; both or neither when it fails.
    if (quale == (IndiceEsatto == 0 ? 0 : 1))
        RendiVeraLaSeconda();
}

// --- Answers ---

void FormEs5::RispostaEsattaConPuntatore()
{
    Smista();
}

void FormEs5::RispostaEsattaConScansione()
{
    if (!Smista())
        return;
    Evidenzia(Primo, false);
    Evidenzia(Secondo, false);
    EvidenziaProssimo();
}

// Puts the figure into its set and shows the next one; true when the series is at its end.
bool FormEs5::Smista()
{
    ContaEsatto();
    ScriviPannelloEsatti();
    if (IndiceEsatto != 0) {
        ColoraNo();
        NumeroNo = Integer16(NumeroNo + 1);
    } else {
        ColoraSi();
        NumeroSi = Integer16(NumeroSi + 1);
    }
    SuonoEsatto();
    if (NumeroSi < PostiPerInsieme && NumeroNo < PostiPerInsieme) {
        ImpostaColori();
        return false;
    }
    Command1(Primo).SetEnabled(false);
    Command1(Secondo).SetEnabled(false);
    Command1(Prossimo).SetEnabled(true);
    ShockwaveFlash1.SetVisible(false);
    return true;
}

void FormEs5::ColoraSi()
{
    Skipping([&] { Colora(ShockwaveFlash2(NumeroSi)); });
}

void FormEs5::ColoraNo()
{
    Skipping([&] { Colora(ShockwaveFlash3(NumeroNo)); });
}

void FormEs5::Colora(MovieControl &copia)
{
    SetMousePointer(platform::MousePointer::Hourglass);
    ColoraFigura(copia, ColoreParte);
    copia.SetVisible(true);
    SetMousePointer(platform::MousePointer::Default);
}
