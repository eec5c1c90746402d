#include "frame/sentences.h"

#include "core/lettering.h"
#include "core/profile.h"
#include "core/shared_state.h"
#include "frame/figure_movie.h"

#include <array>

namespace {

struct RigaParte {
    int Positiva; // index of `Messaggi`
    int Negativa;
    int Colonna; // of `Colori`: 1 and 2 masculine, 3 and 4 feminine; even ones plural
};

// The negative openings of windows and door stand the other way round than their keys: meant.
constexpr std::array<RigaParte, 7> Righe = {{
    {0, 0, 0},
    {20, 21, 1}, // comignolo
    {1, 22, 1},  // tetto
    {2, 23, 4},  // pareti
    {3, 25, 4},  // finestre
    {4, 24, 3},  // porta
    {5, 26, 1},  // gradino
}};

const RigaParte &Riga(int parte)
{
    return Righe.at(static_cast<size_t>(parte));
}

} // namespace

QString AperturaPositiva(int parte)
{
    return Messaggi(Riga(parte).Positiva);
}

QString AperturaNegativa(int parte)
{
    return Messaggi(Riga(parte).Negativa);
}

QString NomeColore(int colore, int parte)
{
    return Colori(colore, Riga(parte).Colonna);
}

QString FrasePresenza(int parte, bool presente)
{
    if (parte == Fumo)
        return Messaggi(presente ? 10 : 11);
    return Messaggi(presente ? 16 : 15);
}

QString Congiunzione()
{
    return Messaggi(14);
}

QString InStile(const QString &frase)
{
    if (TipoCarattere == QStringLiteral("maiuscolo"))
        return InMaiuscolo(frase);
    const QString minuscolo = InMinuscolo(frase);
    return InMaiuscolo(minuscolo.left(1)) + minuscolo.mid(1);
}
