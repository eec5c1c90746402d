#include "core/shared_state.h"

#include "core/palette.h"
#include "core/profile.h"
#include "language/language.h"
#include "platform/errors.h"

using platform::RunTimeError;
using platform::SubscriptOutOfRange;

std::shared_ptr<clsResize> Ridimensionatore;
int32_t Esatti = 0;
int16_t Errati = 0;
TabellaTesti<RigheEserciziEseguiti, 4> EserciziEseguiti;
int16_t NumeroEserciziEseguiti = 0;
QString EtichettaEsatti;
QString EtichettaErrati;
QString EtichettaLivello;
QString UltimoFileScelto;

template <int Righe, int Colonne>
QString &TabellaTesti<Righe, Colonne>::operator()(int riga, int colonna)
{
    if (riga < 0 || riga >= Righe || colonna < 0 || colonna >= Colonne)
        throw RunTimeError(SubscriptOutOfRange);
    return m_celle[static_cast<size_t>(riga) * Colonne + static_cast<size_t>(colonna)];
}

template class TabellaTesti<RigheEserciziEseguiti, 4>;
template class TabellaTesti<6, 5>;

namespace {

std::array<QString, QuantiMessaggi> messaggi;

} // namespace

QString &Messaggi(int indice)
{
    if (indice < 0 || indice >= QuantiMessaggi)
        throw RunTimeError(SubscriptOutOfRange);
    return messaggi[static_cast<size_t>(indice)];
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
