#include "frame/reward.h"

#include "platform/files/files.h"
#include "platform/host/chance.h"
#include "platform/movies/movie_reader.h"

using namespace platform;

namespace {

constexpr int RisposteEsattePerPremio = 10;

} // namespace

bool ContaVersoIlPremio(int16_t &contaPremio)
{
    ++contaPremio;
    if (contaPremio < RisposteEsattePerPremio)
        return false;
    contaPremio = 0;
    return true;
}

void MostraPremio(MovieControl &figura, Label &frase, int16_t &giroColori, bool &figuraDaRicaricare)
{
    giroColori = 0;
    frase.SetCaption({});
    const QString cartella = AppPath() + QStringLiteral("\\animazioni\\");
    const int quanti = CountMovies(cartella + QStringLiteral("*.swf"));
    const int numero = Draw(quanti) + 1;
    figura.SetMovie(cartella + QString::number(numero) + QStringLiteral(".swf"));
    figuraDaRicaricare = true;
}
