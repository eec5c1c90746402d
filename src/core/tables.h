// Rows of values whose bounds are real: an index outside is error 9, as everywhere in the rules.
#pragma once

#include "platform/base/errors.h"

#include <QString>

#include <array>
#include <cstddef>

// Indexes 0 to `Ultimo`.
template <typename T, int Ultimo> class Vettore {
public:
    T &operator()(int indice) { return m_celle[Posto(indice)]; }
    const T &operator()(int indice) const { return m_celle[Posto(indice)]; }

private:
    static size_t Posto(int indice)
    {
        if (indice < 0 || indice > Ultimo)
            throw platform::RunTimeError(platform::SubscriptOutOfRange);
        return static_cast<size_t>(indice);
    }
    std::array<T, size_t{Ultimo} + 1> m_celle{};
};

// Rows and columns, both from 0.
template <typename T, int Righe, int Colonne> class Tabella {
public:
    T &operator()(int riga, int colonna)
    {
        if (riga < 0 || riga >= Righe || colonna < 0 || colonna >= Colonne)
            throw platform::RunTimeError(platform::SubscriptOutOfRange);
        return m_celle[static_cast<size_t>(riga) * Colonne + static_cast<size_t>(colonna)];
    }
    void Azzera() { m_celle = {}; }

private:
    std::array<T, static_cast<size_t>(Righe) * Colonne> m_celle{};
};

template <int Righe, int Colonne> using TabellaTesti = Tabella<QString, Righe, Colonne>;
