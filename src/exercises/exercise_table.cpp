#include "exercises/exercise_table.h"

#include "core/windows.h"
#include "exercises/form_es1.h"
#include "exercises/form_es2.h"
#include "exercises/form_es3.h"
#include "exercises/form_es4.h"
#include "exercises/form_es5.h"
#include "exercises/form_es6.h"
#include "exercises/form_es7.h"
#include "exercises/form_es8.h"

namespace {

template <typename Finestra> platform::Form *Crea()
{
    return new Finestra;
}

struct Riga {
    const char *Nome;
    CreaFinestra Crea;
};
constexpr Riga Tavola[] = {
    {"FormEs1", Crea<FormEs1>}, // Vero o falso
    {"FormEs2", Crea<FormEs2>}, // Uguale - diverso
    {"FormEs3", Crea<FormEs3>}, // Uguali - 2°
    {"FormEs4", Crea<FormEs4>}, // Colora la morlena
    {"FormEs5", Crea<FormEs5>}, // Insiemi
    {"FormEs6", Crea<FormEs6>}, // Trova gli intrusi
    {"FormEs7", Crea<FormEs7>}, // Indovina chi?
    {"FormEs8", Crea<FormEs8>}, // Uguali - 1°
};

} // namespace

void RegistraEsercizi()
{
    for (const Riga &riga : Tavola)
        RegistraFinestra(QString::fromLatin1(riga.Nome), riga.Crea);
}
