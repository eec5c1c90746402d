#include "core/profile.h"

#include "language/language.h"
#include "platform/base/errors.h"
#include "platform/files/files.h"

#include <array>

using namespace platform;

bool SuoniAttivi = false;
bool DisabilitaMousePersonalizzato = false;
int16_t ModoInput = 0;
int16_t VelocitaScansione = 0;
TabellaTesti<6, 5> Colori;
double ColoreSfondo = 0;
QString TipoCarattere;
QString FontCorrente;
QString FontScelto;
int16_t DimensioneFont = 0;
double ColoreFont = 0;
double ColoreBottoni = 0;
bool ColoriVari = false;
double ColorePulsantiSelezionati = 0;
double ColoreSfondoTesto = 0;
bool PassaggioLivelli = false;
bool SalvaUtente = false;
QString StringaProfilo;
QString NomePersonaggio;
QString FileUtente;
QString NomeUtente;

namespace {

constexpr int RigheColori = 5;
constexpr int ColonneColori = 5;

void ScriviBooleano(TextWriter &file, bool valore)
{
    file.PrintText(valore ? QStringLiteral("True") : QStringLiteral("False"));
}

// Only a capital T is true.
bool LeggiBooleano(RecordReader &file)
{
    return file.Text().startsWith(QLatin1Char('T'));
}

void Leggi(RecordReader &file)
{
    SuoniAttivi = LeggiBooleano(file);
    DisabilitaMousePersonalizzato = LeggiBooleano(file);
    ModoInput = file.Integer();
    VelocitaScansione = file.Integer();
    for (int riga = 0; riga < RigheColori; ++riga)
        for (int colonna = 0; colonna < ColonneColori; ++colonna)
            Colori(riga, colonna) = file.Text();
    ColoreSfondo = file.Number();
    TipoCarattere = file.Text();
    FontCorrente = file.Text();
    FontScelto = file.Text();
    DimensioneFont = file.Integer();
    ColoreFont = file.Number();
    ColoreBottoni = file.Number();
    ColoriVari = LeggiBooleano(file);
    ColorePulsantiSelezionati = file.Number();
    ColoreSfondoTesto = file.Number();
    PassaggioLivelli = LeggiBooleano(file);
    SalvaUtente = LeggiBooleano(file);
    StringaProfilo = file.Text();
    NomePersonaggio = file.Text();
}

} // namespace

void ColoriPredefiniti()
{
    constexpr std::array<std::array<const char *, ColonneColori>, RigheColori> predefiniti = {{
        {"FFFFCC", "sfondo", "sfondo", "sfondo", "sfondo"},
        {"00FF00", "verde", "verdi", "verde", "verdi"},
        {"FF0000", "rosso", "rossi", "rossa", "rosse"},
        {"0000FF", "blu", "blu", "blu", "blu"},
        {"FFFF00", "giallo", "gialli", "gialla", "gialle"},
    }};
    for (int riga = 0; riga < RigheColori; ++riga)
        for (int colonna = 0; colonna < ColonneColori; ++colonna)
            Colori(riga, colonna) = QString::fromLatin1(
                predefiniti[static_cast<size_t>(riga)][static_cast<size_t>(colonna)]);
}

void ImpostazioniPredefinite()
{
    SuoniAttivi = true;
    DisabilitaMousePersonalizzato = false;
    ModoInput = 0;
    VelocitaScansione = 4;
    ColoriPredefiniti();
    ColoreSfondo = 0x00FFFF80;
    TipoCarattere = QStringLiteral("minuscolo");
    FontCorrente = QStringLiteral("arial");
    FontScelto = QStringLiteral("arial");
    DimensioneFont = 24;
    ColoreFont = static_cast<int32_t>(SystemButtonText);
    ColoreBottoni = static_cast<int32_t>(SystemButtonFace);
    ColoriVari = true;
    ColorePulsantiSelezionati = 0x000000FF;
    ColoreSfondoTesto = 0x00FFFFFF;
    PassaggioLivelli = false;
    SalvaUtente = false;
    StringaProfilo = MLSTesto(QStringLiteral("0041"));
    NomePersonaggio = QStringLiteral("Merlin");
}

void SalvaImpostazioni()
{
    TextWriter file(FileUtente);
    ScriviBooleano(file, SuoniAttivi);
    ScriviBooleano(file, DisabilitaMousePersonalizzato);
    file.PrintNumber(ModoInput);
    file.PrintNumber(VelocitaScansione);
    for (int riga = 0; riga < RigheColori; ++riga)
        for (int colonna = 0; colonna < ColonneColori; ++colonna)
            file.PrintText(Colori(riga, colonna));
    file.PrintNumber(ColoreSfondo);
    file.PrintText(TipoCarattere);
    file.PrintText(FontCorrente);
    file.PrintText(FontScelto);
    file.PrintNumber(DimensioneFont);
    file.PrintNumber(ColoreFont);
    file.PrintNumber(ColoreBottoni);
    ScriviBooleano(file, ColoriVari);
    file.PrintNumber(ColorePulsantiSelezionati);
    file.PrintNumber(ColoreSfondoTesto);
    ScriviBooleano(file, PassaggioLivelli);
    ScriviBooleano(file, SalvaUtente);
    file.PrintText(StringaProfilo);
    file.PrintText(NomePersonaggio);
    file.Close();
}

void CaricaImpostazioni()
{
    // Of a damaged file nothing stays, however much of it was good.
    if (Skipping([] {
            RecordReader file(FileUtente);
            Leggi(file);
        }) != 0)
        ImpostazioniPredefinite();
}

void AzzeraProfilo()
{
    SuoniAttivi = DisabilitaMousePersonalizzato = ColoriVari = false;
    PassaggioLivelli = SalvaUtente = false;
    ModoInput = VelocitaScansione = DimensioneFont = 0;
    Colori.Azzera();
    ColoreSfondo = ColoreFont = ColoreBottoni = 0;
    ColorePulsantiSelezionati = ColoreSfondoTesto = 0;
    for (QString *testo : {&TipoCarattere, &FontCorrente, &FontScelto, &StringaProfilo,
                           &NomePersonaggio, &FileUtente, &NomeUtente})
        testo->clear();
}
