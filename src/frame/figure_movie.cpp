#include "frame/figure_movie.h"

#include "core/profile.h"
#include "platform/files/files.h"

#include <array>

using namespace platform;

namespace {

constexpr int Visibilita = 7; // number of the movie's visibility property

constexpr std::array<const char *, 9> Nomi = {"",      "comignolo", "tetto", "pareti", "finestre",
                                              "porta", "gradino",   "fumo",  "nuvole"};

// The object first, the colour second: the movie has no call that takes both.
void Dipingi(MovieControl &figura, int parte, const QString &oggetto, const QString &colore,
             const QString &variabile)
{
    figura.SetVariable(QStringLiteral("QualeOggetto"), QLatin1String(NomeParte(parte)) + oggetto);
    figura.SetVariable(variabile, colore);
}

} // namespace

const char *NomeParte(int parte)
{
    return Nomi.at(static_cast<size_t>(parte));
}

void ApriFigura(MovieControl &figura)
{
    figura.SetMovie(AppPath() + QStringLiteral("\\swf\\morlene1.swf"));
}

void ApriFigura(MovieControl &figura, int fotogramma)
{
    ApriFigura(figura);
    figura.GotoFrame(fotogramma);
}

QString VariabileColore()
{
    return QStringLiteral("TestoColore.QualeColore");
}

void DipingiParte(MovieControl &figura, int parte, const QString &colore, const QString &variabile)
{
    Dipingi(figura, parte, QStringLiteral(".interno"), colore, variabile);
}

void DipingiContorno(MovieControl &figura, int parte, const QString &colore)
{
    Dipingi(figura, parte, QStringLiteral(".contorno"), colore, VariabileColore());
}

void MostraParte(MovieControl &figura, int parte, bool presente)
{
    figura.TSetProperty(QLatin1String(NomeParte(parte)), Visibilita,
                        presente ? QStringLiteral("1") : QStringLiteral("0"));
}

void ColoraFigura(MovieControl &figura, const Colorazione &colori)
{
    figura.SetBGColor(Colori(0, 0));
    for (int parte = 1; parte <= PartiDipinte; ++parte)
        DipingiParte(figura, parte, Colori(colori(parte), 0));
    for (const int parte : {Fumo, Nuvole})
        MostraParte(figura, parte, colori(parte) != 0);
}
