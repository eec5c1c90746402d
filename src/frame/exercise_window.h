// What every exercise window does: load, the steps of activation, levels, counters and log rows,
// the light under the pointer, scanning, leaving. Each exercise lists the steps in its own order.
#pragma once

#include "core/profile.h"
#include "core/shared_state.h"
#include "frame/scanning.h"
#include "platform/controls/button.h"
#include "platform/controls/control_array.h"
#include "platform/controls/form.h"
#include "platform/controls/menu.h"
#include "platform/controls/movie_control.h"
#include "platform/controls/picture.h"
#include "platform/controls/status_bar.h"
#include "platform/controls/timer.h"

#include <cstdint>
#include <functional>

// The numbers in which the windows differ. Sizes are twips of the design's client area.
struct DisegnoEsercizio {
    const char *Nome;
    double Larghezza;
    double Altezza;
    platform::Color Sfondo;           // kept while `ColoriVari` is true
    int Livelli;                      // levels 1 to this one
    int SogliaSalita;                 // right minus wrong answers that raise the level
    const char *NomeFiguraDaColorare; // design name of the menu entry
    const char *NomeMerlino;          // the picture that is never shown
    platform::Place Merlino;
    double TastieraSinistra; // the two keyboard targets, right of what is seen
    double TastieraManualeAlto;
    double TastieraAutomaticaAlto;
};

class FinestraEsercizio : public platform::Form {
public:
    int16_t Livello = 0;

    platform::PictureBox PicMerlino;
    platform::Timer Timer1;
    platform::PictureBox PictureScansioneManuale;
    platform::PictureBox PictureScansioneAutomatica;
    platform::ControlArray<platform::Button> Command1;
    platform::StatusBar StatusBar1;

    platform::MenuItem mnuLivelli;
    platform::ControlArray<platform::MenuItem> mnuLiv;
    platform::MenuItem mnuSt;
    platform::MenuItem mnuStEserc;
    platform::MenuItem mnuStPg;
    platform::MenuItem mnuStOr;
    platform::MenuItem mnuStVer;
    platform::MenuItem mnuCol;
    platform::MenuItem mnuEsci;

protected:
    explicit FinestraEsercizio(const DisegnoEsercizio &disegno);

    // What the window does when it is activated, in its own order.
    virtual void Attiva() = 0;
    // Makes and shows a task; its first step is `CambiaLivello` when levels move by themselves.
    virtual void GeneraEsercizio() = 0;
    // Scanning: one step of the highlight (never `Gesto::Scegli`), the choice, and the tick of mode
    // 2, which steps and takes the keyboard in the window's own order.
    virtual void PassoScansione(Gesto verso) = 0;
    virtual void Scegli() = 0;
    virtual void PassoAutomatico() = 0;

    // The load that all windows share.
    void Carica();

    // Steps of activation.
    void OccupaLoSchermo();
    void VestiPuntatori();
    void VestiSfondo();
    void VestiPulsanti();
    void VestiPulsante(int indice);
    // Colours and font of the sentences, on a label or a text box.
    template <typename Testo> void VestiTesto(Testo &testo);
    void CominciaDalPrimoLivello(); // `Livello` and the level menu
    // Timer on, in mode 2 with its interval; or timer off and false with a mouse.
    bool AvviaScansione();
    void AzzeraContatori(); // panels 3, 1, 2
    void AbbassaBarraDiStato();

    // One more right or wrong answer; panels are written apart, since their order differs.
    void ContaEsatto();
    void ContaErrato();
    // What a wrong answer does in every exercise: sound, count, panel 2.
    void RispostaErrata();
    void ScriviPannelloEsatti();
    void ScriviPannelloErrati();
    void ScriviPannelloLivello();

    // Looks at the score. `dopoIlCambio` runs at the end of a change, before panel 3 is written.
    void CambiaLivello(const std::function<void()> &dopoIlCambio);

    // The light under the pointer, over buttons and window, with a mouse only. A colour is only
    // written when it differs. What else puts it out is the exercise's to say.
    void CollegaLuce();
    void SpegniPulsanti();
    void AccendiPulsante(int indice);

    // Scanning light on a button.
    void Evidenzia(int indice, bool acceso);
    void PrendiFuocoAutomatico();

private:
    void Ridimensiona();
    void Esci();
    void ScegliLivello(int indice);
    void UnLivelloInMeno(const std::function<void()> &dopoIlCambio);
    void UnLivelloInPiu(const std::function<void()> &dopoIlCambio);
    void ScriviRiga();
    void ChiudiLivello();
    void CollegaScansione();
    void Tick();
    void TastoManuale(int tasto);
    void TastoAutomatico(int tasto);

    DisegnoEsercizio m_disegno;
};

template <typename Testo> void FinestraEsercizio::VestiTesto(Testo &testo)
{
    testo.SetBackColor(platform::ToColor(ColoreSfondoTesto));
    testo.SetForeColor(platform::ToColor(ColoreFont));
    testo.SetFontName(FontCorrente);
    testo.SetFontSize(DimensioneFont);
}
