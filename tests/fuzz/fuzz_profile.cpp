// A player's file of any bytes: it is read or gives the defaults, what it gave can be used, and
// what is saved is read back.
#include "core/profile.h"
#include "platform/base/colors.h"
#include "platform/base/errors.h"

#include "support/folder_host.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

using namespace platform;

// Texts are saved as they are: these come back as something else.
static bool Changes(const QString &text)
{
    return text.contains(QLatin1Char(',')) || text.startsWith(QLatin1Char('"')) ||
           text.startsWith(QLatin1Char(' ')) || text.startsWith(QLatin1Char('\t')) ||
           text.contains(QLatin1Char('\r')) || text.contains(QLatin1Char('\n'));
}

static bool ComesBack()
{
    for (int row = 0; row < 5; ++row)
        for (int column = 0; column < 5; ++column)
            if (Changes(Colori(row, column)))
                return false;
    for (const QString *text :
         {&TipoCarattere, &FontCorrente, &FontScelto, &StringaProfilo, &NomePersonaggio})
        if (Changes(*text))
            return false;
    // With 15 digits the largest numbers are written as larger ones.
    for (const double number :
         {ColoreSfondo, ColoreFont, ColoreBottoni, ColorePulsantiSelezionati, ColoreSfondoTesto})
        if (std::fabs(number) > 1.7e308)
            return false;
    return true;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static FolderHost host;
    const QString path = host.Drive + QStringLiteral("a.ini");
    FileUtente = QStringLiteral("C:\\a.ini");
    FolderHost::Put(path,
                    QByteArray(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size)));
    CaricaImpostazioni();
    for (const double number :
         {ColoreSfondo, ColoreFont, ColoreBottoni, ColorePulsantiSelezionati, ColoreSfondoTesto}) {
        const int error = ErrorOf([&] { static_cast<void>(ToColor(number)); });
        if (error != 0 && error != Overflow)
            std::abort();
    }
    SalvaImpostazioni();
    if (!ComesBack())
        return 0;
    const QByteArray saved = FolderHost::Get(path);
    CaricaImpostazioni();
    SalvaImpostazioni();
    if (FolderHost::Get(path) != saved)
        std::abort();
    return 0;
}
