// "Colora la morlena": the child paints a grey house to match sentences about its parts.
#pragma once

#include "frame/exercise_window.h"
#include "frame/figure_movie.h"
#include "platform/controls/label.h"
#include "platform/controls/text_box.h"

class FormEs4 : public FinestraEsercizio {
public:
    FormEs4();

    // The task that is shown.
    Colorazione ColoreParte; // 1 to 6: the colour that the sentence names; 7, 8 as shown
    // Row 0: the part is open, it can be painted; rows 1 to 4: that colour satisfies its sentence.
    Tabella<bool, 5, 7> Soluzioni;
    Vettore<int16_t, 6> Colorati;   // the child's colour of each part; 0: not painted yet
    Vettore<QString, 8> FraseFatta; // "fatta" when the sentence has been presented
    int16_t Fatte = 0;              // parts done, 0 to 6
    int16_t QualeParte = 0;         // the part being worked on
    int16_t ColoreCorrente = 0;     // 1 to 4: the colour last given; 99: the next task waits

    platform::MovieControl ShockwaveFlash1;
    platform::TextBox Text1;
    platform::Label Label2;

protected:
    void Attiva() override;
    void GeneraEsercizio() override;
    void PassoScansione(Gesto verso) override;
    void Scegli() override;
    void PassoAutomatico() override;

private:
    void ApriFilemorlene();
    void ImpostaColori();

    void ScriviFrase();
    void ScriviFraseDi(int16_t parte, bool nega);
    void PresentaFrasi();
    void PresentaFraseUnica();
    void PresentaUnaPerVolta();
    void ScegliParteDaFare();
    void AspettaIlProssimo();

    void Dipinto(const QString &comando);
    void Controlla(int indice);
    void ControllaParte();
    void ControllaTutte();
    bool Soddisfatta(int parte);
    bool ChiudiParteSeGiusta();

    void PreparaScansione();
    void ProssimoColore();
    void ColoraFrase();
    void ColoraContorno();
    void DeColoraContorno();

    Vettore<QString, 8> m_frasi; // the sentence of each part
    QString ColoreScansione;     // RRGGBB
};
