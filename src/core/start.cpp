#include "core/start.h"

#include "core/palette.h"
#include "core/profile.h"
#include "core/shared_state.h"
#include "core/windows.h"
#include "language/language.h"
#include "platform/base/errors.h"
#include "platform/files/files.h"
#include "platform/host/host.h"

#include <array>

using namespace platform;

namespace {

QString CartellaRadice()
{
    return QStringLiteral("C:\\ImpostazioniProgrammiTesmi\\");
}

void ScriviLeggimi()
{
    TextWriter file(CartellaRadice() + QStringLiteral("leggimi.txt"));
    file.PrintText(QStringLiteral("Questa cartella contiene i file di impostazione dei programmi "
                                  "del sito di MorleneKVT."));
    file.PrintText({});
    // The slip of the pen in the next line is part of the text.
    file.PrintText(QStringLiteral("Se qualche programma presenta problemi di funzionamento può "
                                  "essere utile cancellare il file *.ini relativo al programma in "
                                  "quata cartella."));
    file.PrintText({});
    file.PrintText(QStringLiteral("Non cancellare questo file."));
    file.Close();
}

// Fonts on the drive are known to this process only: they are registered at each start.
void RegistraFontDelDisco()
{
    const QString cartella = CartellaWindows() + QStringLiteral("fonts\\");
    for (const QString &tipo : {QStringLiteral("*.ttf"), QStringLiteral("*.otf")})
        Skipping([&] {
            for (const QString &nome : DirList(cartella + tipo, LookUp::FilesOnly))
                host().RegisterFont(NativePath(cartella + nome));
        });
}

// Where only an administrator may put a font among the system's, the one beside the program will
// do.
void RegistraFontDelProgramma()
{
    Skipping([] {
        if (!EsisteFile(CartellaWindows() + QStringLiteral("fonts\\indis1.ttf")))
            host().RegisterFont(NativePath(AppPath() + QStringLiteral("\\indis1.ttf")));
    });
}

} // namespace

QString CartellaImpostazioni()
{
    return CartellaRadice() + QStringLiteral("morlenekvt\\");
}

bool EsisteFile(const QString &percorso)
{
    return FileExists(percorso);
}

bool EsisteCartella(const QString &percorso)
{
    // The look-up finds plain files too. With a separator at its end the path asks for what stands
    // in a folder.
    if (percorso.endsWith(QLatin1Char('\\')))
        return FolderExists(percorso);
    return FolderExists(percorso) || FileExists(percorso);
}

void CreaCartella(const QString &percorso)
{
    CreateFolder(percorso);
    ScriviLeggimi();
}

void PreparaCartelle()
{
    if (!EsisteCartella(CartellaRadice()))
        CreaCartella(CartellaRadice());
    if (!EsisteCartella(CartellaImpostazioni())) {
        CreaCartella(CartellaImpostazioni());
        InstallaFont();
    }
    if (!EsisteCartella(CartellaImpostazioni() + QStringLiteral("dati")))
        CreaCartella(CartellaImpostazioni() + QStringLiteral("dati"));
}

QString CartellaWindows()
{
    return QStringLiteral("c:\\windows\\");
}

void InstallaFont()
{
    Skipping([] {
        const QString windows = CartellaWindows();
        if (EsisteFile(windows + QStringLiteral("\\fonts\\indis1.ttf")))
            return;
        const QString font = windows + QStringLiteral("fonts\\indis1.ttf");
        CopyFile(AppPath() + QStringLiteral("\\indis1.ttf"), font);
        host().RegisterFont(NativePath(font));
        host().MessageBox(
            {.Text =
                 MLSTesto(QStringLiteral("0006")) +
                 QStringLiteral(
                     "\n ----------------------- \nFont prodotto da Rinaldo Torvesi\n"
                     "Playwrite Italia Tradizionale, di TypeTogether "
                     "(github.com/TypeTogether/Playwrite), licenza SIL Open Font License 1.1")});
    });
}

void CaricaMessaggi()
{
    // Which pieces have a blank ahead or behind is irregular on purpose: a piece that ends a
    // sentence has none, one that joins two others has one or two.
    constexpr std::array<const char *, QuantiMessaggi> forme = {
        "",   "t ", "t ",  "t ", "t ", "t ", "t",  "t", "t",   "t",  "t",  "t",
        "t",  "t",  " t ", "t",  "t",  "t",  "t",  "t", "t ",  "t ", "t ", "t ",
        "t ", "t ", "t ",  "t ", "t ", "t ", "t ", "t", " t ", "t ", "t"};
    constexpr int PrimaChiave = 6; // piece i takes key 6 + i
    Messaggi(0) = QStringLiteral(" ");
    for (int i = 1; i < QuantiMessaggi; ++i) {
        const QString chiave = QStringLiteral("%1").arg(PrimaChiave + i, 4, 10, QLatin1Char('0'));
        Messaggi(i) = QString::fromLatin1(forme.at(static_cast<size_t>(i)))
                          .replace(QLatin1Char('t'), MLSTesto(chiave));
    }
}

void Main()
{
    if (host().AnotherInstanceRuns()) {
        host().MessageBox({.Text = MLSTesto(QStringLiteral("0001"))});
        return;
    }
    host().Randomize();
    RegistraFontDelDisco();
    PreparaCartelle();
    RegistraFontDelProgramma();
    FileUtente = CartellaImpostazioni() + QStringLiteral("_predefinito.INI");
    NomeUtente = QStringLiteral("_predefinito");
    CaricaImpostazioni();
    PreparaColoriWeb();
    CaricaMessaggi();
    EtichettaEsatti = QLatin1Char(' ') + MLSTesto(QStringLiteral("0004"));
    EtichettaErrati = QLatin1Char(' ') + MLSTesto(QStringLiteral("0005"));
    EtichettaLivello = QLatin1Char(' ') + MLSTesto(QStringLiteral("0105"));
    MostraFinestra(QStringLiteral("FormAvvio"));
}
