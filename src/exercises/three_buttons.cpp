#include "exercises/three_buttons.h"

using namespace platform;

TreBottoni::TreBottoni(const DisegnoEsercizio &disegno, const Place &frase, const Place &figura)
    : FinestraEsercizio(disegno), Label1({*this, "Label1"}, frase),
      ShockwaveFlash1({*this, "ShockwaveFlash1"}, figura)
{
    Label1.SetBackColor(0x00FFFFFF);
    Label1.SetFramed(true);
    Command1.OnClick = [this](int indice) { Risposta(indice); };
    CollegaLuce();
    Label1.OnMouseMove = OnMouseMove;
}

void TreBottoni::Risposta(int indice)
{
    if (ModoInput != 0)
        return;
    if (indice == Prossimo)
        ProssimoEsercizio();
    else if (indice == IndiceGiusto())
        RispostaEsattaConPuntatore();
    else
        RispostaErrata();
}

void TreBottoni::PreparaScansione()
{
    if (!AvviaScansione())
        return;
    for (Button &pulsante : Command1)
        pulsante.SetMousePointer(platform::MousePointer::Default);
    BottoneScansione = Primo;
    Evidenzia(Primo, true);
}

void TreBottoni::PassoScansione(Gesto verso)
{
    // On the next-task button the highlight waits for the child.
    if (BottoneScansione == Prossimo)
        return;
    Evidenzia(BottoneScansione, false);
    SpostaScansione(verso);
    Evidenzia(BottoneScansione, true);
}

void TreBottoni::SpostaScansione(Gesto verso)
{
    BottoneScansione =
        Integer16(PassoCircolare(BottoneScansione, Command1.Count(), Segno(verso),
                                 [this](int indice) { return Command1(indice).Enabled(); }));
}

// The same step, but of a tick a statement that fails is passed over and the next one runs.
void TreBottoni::PassoAutomatico()
{
    PrendiFuocoAutomatico();
    if (BottoneScansione == Prossimo)
        return;
    Skipping([&] { Evidenzia(BottoneScansione, false); });
    Skipping([&] { SpostaScansione(Gesto::Avanti); });
    Skipping([&] { Evidenzia(BottoneScansione, true); });
}

void TreBottoni::Scegli()
{
    if (BottoneScansione == Prossimo) {
        Evidenzia(Prossimo, false);
        BottoneScansione = Primo;
        Evidenzia(Primo, true);
        ProssimoEsercizio();
    } else if (BottoneScansione != IndiceGiusto()) {
        RispostaErrata();
    } else {
        RispostaEsattaConScansione();
    }
}

void TreBottoni::EvidenziaProssimo()
{
    BottoneScansione = Prossimo;
    Evidenzia(Prossimo, true);
}
