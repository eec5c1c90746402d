// The smallest exercise that the frame takes, by the steps of CONTRIBUTING.md: one button is right.
#pragma once

#include "core/sounds.h"
#include "frame/exercise_window.h"
#include "platform/host/chance.h"

class NullExercise : public FinestraEsercizio {
public:
    // 1. Numbers and controls.
    NullExercise()
        : FinestraEsercizio({"NullExercise", 6000, 4000, 0x00FFC0C0, 2, 3, "mnuCol", "picMerlino",
                             platform::Place{0, 0, 900, 900}, 9000, 1000, 2000})
    {
        for (const int i : {0, 1})
            Command1.Add(i, platform::Place{300.0 + 3000 * i, 900, 2400, 1200});
        Command1.OnClick = [this](int indice) {
            if (ModoInput == 0)
                Rispondi(indice);
        };
        CollegaLuce();
    }

protected:
    // 2. Activation.
    void Attiva() override
    {
        OccupaLoSchermo();
        PicMerlino.SetVisible(false);
        VestiPulsanti();
        CominciaDalPrimoLivello();
        AzzeraContatori();
        Evidenzia(m_acceso, AvviaScansione());
        GeneraEsercizio();
    }
    // 3. A task, made and shown.
    void GeneraEsercizio() override
    {
        if (PassaggioLivelli)
            CambiaLivello([] {});
        m_giusto = platform::Draw(2);
        for (const int i : {0, 1})
            Command1(i).SetCaption(QString::fromLatin1(i == m_giusto ? "giusto" : "sbagliato"));
    }
    // 4. An answer: by pointer, and by the light's step, choice and tick.
    void Rispondi(int indice)
    {
        if (indice != m_giusto)
            return RispostaErrata();
        ContaEsatto(), ScriviPannelloEsatti(), SuonoEsatto(), GeneraEsercizio();
    }
    void PassoScansione(Gesto) override
    {
        Evidenzia(m_acceso, false);
        Evidenzia(m_acceso = 1 - m_acceso, true);
    }
    void Scegli() override { Rispondi(m_acceso); }
    void PassoAutomatico() override { PrendiFuocoAutomatico(), PassoScansione(Gesto::Avanti); }
    int m_giusto = 0, m_acceso = 0;
};
