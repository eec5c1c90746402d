#include "frame/figure_movie.h"

#include "core/profile.h"
#include "platform/files.h"

using namespace platform;

namespace {

constexpr int Visibilita = 7; // number of the movie's visibility property

constexpr std::array<const char *, 9> Nomi = {"",      "comignolo", "tetto", "pareti", "finestre",
                                              "porta", "gradino",   "fumo",  "nuvole"};

} // namespace

const char *NomeParte(int parte)
{
    return Nomi.at(static_cast<size_t>(parte));
}

void ApriFigura(MovieControl &figura, int fotogramma)
{
    figura.SetMovie(AppPath() + QStringLiteral("\\swf\\morlene1.swf"));
    figura.GotoFrame(fotogramma);
}

void ColoraFigura(MovieControl &figura, const Colorazione &colori)
{
    figura.SetBGColor(Colori(0, 0));
    for (int parte = 1; parte <= PartiDipinte; ++parte) {
        // The object first, the colour second: the movie has no call that takes both.
        figura.SetVariable(QStringLiteral("QualeOggetto"),
                           QLatin1String(NomeParte(parte)) + QStringLiteral(".interno"));
        figura.SetVariable(QStringLiteral("TestoColore.QualeColore"),
                           Colori(colori.at(static_cast<size_t>(parte)), 0));
    }
    for (const int parte : {Fumo, Nuvole})
        figura.TSetProperty(QLatin1String(NomeParte(parte)), Visibilita,
                            colori.at(static_cast<size_t>(parte)) != 0 ? QStringLiteral("1")
                                                                       : QStringLiteral("0"));
}
