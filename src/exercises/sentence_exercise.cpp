#include "exercises/sentence_exercise.h"

#include "core/sounds.h"
#include "frame/reward.h"

namespace {

constexpr int TurniPerColorazione = 4;

} // namespace

void EsercizioConFrase::VestiRisposte()
{
    Command1(Prossimo).SetPicture(QStringLiteral("prossimo"));
    Command1(Prossimo).SetSpokenName(QStringLiteral("Avanti"));
    Command1(Prossimo).SetEnabled(false);
    for (platform::Button &pulsante : Command1) {
        pulsante.SetFontSize(40);
        pulsante.SetFontBold(true);
        pulsante.SetMousePointer(platform::MousePointer::Custom);
    }
}

void EsercizioConFrase::Attiva()
{
    OccupaLoSchermo();
    // The answers show their captions only.
    Command1(Primo).SetPicture({});
    Command1(Secondo).SetPicture({});
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
    GiroColori = 0;
    GeneraEsercizio();
}

void EsercizioConFrase::GeneraEsercizio()
{
    if (PassaggioLivelli)
        CambiaLivello([this] { DopoIlCambio(); });
    if (GiroColori == 0)
        ImpostaColori();
    Command1(Primo).SetEnabled(true);
    Command1(Secondo).SetEnabled(true);
    Command1(Prossimo).SetEnabled(false);
    GiroColori = platform::Integer16((GiroColori + 1) % TurniPerColorazione);
    ScriviFrase();
    MostraFrase();
}

void EsercizioConFrase::ProssimoEsercizio()
{
    if (FiguraDaRicaricare)
        ApriFilemorlene();
    GeneraEsercizio();
}

void EsercizioConFrase::PremiaSeServe()
{
    if (ContaVersoIlPremio(ContaPremio))
        MostraPremio(ShockwaveFlash1, Label1, GiroColori, FiguraDaRicaricare);
}

void EsercizioConFrase::RispostaEsattaConScansione()
{
    // Unlike by pointer the reward comes first, and the answer buttons stay enabled: meant.
    ContaEsatto();
    PremiaSeServe();
    ScriviPannelloEsatti();
    SuonoEsatto();
    Evidenzia(BottoneScansione, false);
    EvidenziaProssimo();
}
