#include "core/shared_state.h"

#include "core/palette.h"
#include "core/profile.h"
#include "language/language.h"

std::shared_ptr<clsResize> Ridimensionatore;
int32_t Esatti = 0;
int16_t Errati = 0;
TabellaTesti<RigheEserciziEseguiti, 4> EserciziEseguiti;
int16_t NumeroEserciziEseguiti = 0;
QString EtichettaEsatti;
QString EtichettaErrati;
QString EtichettaLivello;
QString UltimoFileScelto;

namespace {

Vettore<QString, QuantiMessaggi - 1> messaggi;

} // namespace

QString &Messaggi(int indice)
{
    return messaggi(indice);
}

void AzzeraStatoCondiviso()
{
    Ridimensionatore.reset();
    Esatti = 0;
    Errati = 0;
    EserciziEseguiti.Azzera();
    NumeroEserciziEseguiti = 0;
    EtichettaEsatti.clear();
    EtichettaErrati.clear();
    EtichettaLivello.clear();
    UltimoFileScelto.clear();
    messaggi = {};
    ColoriWebHex = {};
    ColoriWebLetterali = {};
    LinguaCorrente.clear();
    AzzeraProfilo();
}
