#include "exercises/differences.h"

#include "core/lettering.h"
#include "core/sounds.h"
#include "platform/host/chance.h"

using namespace platform;

namespace {

constexpr int QuanteParti = 8;

// Colours 1 to 4 on the painted parts, 0 and 1 on smoke and clouds.
int16_t EstraiValore(int parte)
{
    return parte > PartiDipinte ? Integer16(Draw(2)) : Integer16(Draw(4) + 1);
}

} // namespace

Differenze::Differenze(const DisegnoEsercizio &disegno, const DisegnoDifferenze &differenze)
    : FinestraEsercizio(disegno), ShockwaveFlash1({*this, "ShockwaveFlash1"}, differenze.Figura1),
      ShockwaveFlash2({*this, "ShockwaveFlash2"}, differenze.Figura2),
      Pannello({*this, differenze.NomePannello}, differenze.Pannello),
      Label1(Pannello.Inside("Label1"),
             {0, 0, differenze.Pannello.Width, differenze.Pannello.Height}),
      m_primaPosizione(differenze.PrimaPosizione)
{
    Pannello.SetVisible(false);
    ShockwaveFlash1.SetSpokenName(QStringLiteral("Prima morlena"));
    ShockwaveFlash2.SetSpokenName(QStringLiteral("Seconda morlena"));
    Pannello.SetSpokenName(QStringLiteral("Istruzioni"));
    Label1.SetFramed(true);
    // The two buttons answer the mouse in every input mode: meant.
    Command1.OnClick = [this](int indice) {
        if (indice == Prossimo) {
            GeneraEsercizio();
        } else {
            Pannello.BringToFront();
            Pannello.SetVisible(true);
        }
    };
    Label1.OnClick = [this] { Pannello.SetVisible(false); };
}

void Differenze::VestiDisegno()
{
    Command1(Prossimo).SetPicture(QStringLiteral("prossimo"));
    Command1(Prossimo).SetSpokenName(QStringLiteral("Avanti"));
    Command1(Prossimo).SetEnabled(false);
    Command1(Aiuto).SetPicture(QStringLiteral("aiuto"));
    Command1(Aiuto).SetSpokenName(QStringLiteral("Che cosa devo fare?"));
    for (Button &pulsante : Command1)
        pulsante.SetMousePointer(platform::MousePointer::Custom);
}

void Differenze::VestiIstruzioni(const QString &testo)
{
    Label1.SetCaption(TipoCarattere == QStringLiteral("maiuscolo") ? InMaiuscolo(testo) : testo);
}

// --- Making the task ---

void Differenze::GeneraEsercizio()
{
    Command1(Prossimo).SetEnabled(false);
    if (PassaggioLivelli)
        CambiaLivello([] {});
    DifferenzeTrovate = 0;
    ImpostaColori();
    PosizioneScansione = Integer16(m_primaPosizione);
    if (ModoInput > 0)
        ColoraSelezionato();
}

void Differenze::EstraiFigura1()
{
    for (int parte = 1; parte <= QuanteParti; ++parte)
        ColoriFigura1(parte) = EstraiValore(parte);
}

void Differenze::CopiaFigura1()
{
    for (int parte = 1; parte <= QuanteParti; ++parte) {
        ParteDiversa(parte) = 0;
        ColoriFigura2(parte) = ColoriFigura1(parte);
    }
}

void Differenze::CreaDifferenze(int quanteParti)
{
    for (int differenza = 0; differenza < Livello; ++differenza) {
        int parte = 0;
        do
            parte = Draw(quanteParti) + 1;
        while (ParteDiversa(parte) == 1);
        ParteDiversa(parte) = 1;
        do
            ColoriFigura2(parte) = EstraiValore(parte);
        while (ColoriFigura2(parte) == ColoriFigura1(parte));
    }
}

void Differenze::ColoraPrimomorlena()
{
    ColoraFigura(ShockwaveFlash1, ColoriFigura1);
}

void Differenze::ColoraSecondomorlena()
{
    ColoraFigura(ShockwaveFlash2, ColoriFigura2);
}

// --- Answers by pointer ---

bool Differenze::AspettaRisposta() const
{
    return ModoInput == 0 && !Command1(Prossimo).Enabled();
}

void Differenze::DifferenzaTrovata()
{
    ContaEsatto();
    ScriviPannelloEsatti();
    DifferenzeTrovate = Integer16(DifferenzeTrovate + 1);
    if (DifferenzeTrovate >= Livello)
        ConcludiEsercizio();
    SuonoEsatto();
}

void Differenze::ConcludiEsercizio()
{
    if (ModoInput == 0) {
        Command1(Prossimo).SetEnabled(true);
        return;
    }
    // By scanning the button stays disabled: its colour tells that the task is done.
    Evidenzia(Prossimo, true);
    PosizioneScansione = Integer16(m_primaPosizione + QuanteParti);
}

// --- Answers by scanning ---

int Differenze::Parte() const
{
    return PosizioneScansione - m_primaPosizione + 1;
}

bool Differenze::InAttesa() const
{
    return Parte() > QuanteParti;
}

void Differenze::PassoScansione(Gesto verso)
{
    // On the next-task button the highlight waits for the child.
    if (InAttesa())
        return;
    const int posto =
        PassoCircolare(Parte() - 1, QuanteParti, Segno(verso), [](int) { return true; });
    PosizioneScansione = Integer16(m_primaPosizione + posto);
    ColoraSelezionato();
}

void Differenze::PassoAutomatico()
{
    PrendiFuocoAutomatico();
    PassoScansione(Gesto::Avanti);
}

void Differenze::Scegli()
{
    if (InAttesa()) {
        Evidenzia(Prossimo, false);
        GeneraEsercizio();
        return;
    }
    const int parte = Parte();
    if (ParteDiversa(parte) != 1)
        return RispostaErrata();
    // Whichever house the child looks at, the second one is repaired; and unlike by pointer the
    // part is no difference any more: meant.
    ColoriFigura2(parte) = ColoriFigura1(parte);
    ColoraSecondomorlena();
    ParteDiversa(parte) = 0;
    DifferenzaTrovata();
}
