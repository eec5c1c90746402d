// The child reads which colour a part has, or has not, and paints it: by clicks on the house, or by
// letting the marked part change its colour. A sentence is a set of colours that satisfy it.
#include "exercises/form_es4.h"

#include "core/lettering.h"
#include "core/sounds.h"
#include "frame/sentences.h"
#include "platform/host/chance.h"

using namespace platform;

namespace {

constexpr DisegnoEsercizio Disegno = {
    .Nome = "FormEs4",
    .Larghezza = 7215,
    .Altezza = 6270,
    .Sfondo = 0x00FFFFC0,
    .Livelli = 6,
    .SogliaSalita = 14,
    .NomeFiguraDaColorare = "mnuPag",
    .NomeMerlino = "picMerlino",
    .Merlino = {4440, 2760, 1335, 2535},
    .TastieraSinistra = 12720,
    .TastieraManualeAlto = 2040,
    .TastieraAutomaticaAlto = 2880,
};

constexpr int Verifica = 0; // indexes of `Command1`
constexpr int Prossimo = 1;

constexpr int QuantiColori = 4;
constexpr int16_t InAttesa = 99; // `ColoreCorrente` while the next task waits for the child
const QString Fatta = QStringLiteral("fatta");
const QString ACapo = QStringLiteral("\r\n");
const QString Grigio = QStringLiteral("CCCCCC");

// Levels 1 to 3 present one sentence at a time, 4 to 6 all of them together.
bool UnaAllaVolta(int livello)
{
    return livello <= 3;
}

} // namespace

FormEs4::FormEs4()
    : FinestraEsercizio(Disegno),
      ShockwaveFlash1({*this, "ShockwaveFlash1"}, {120, 120, 4935, 4215}),
      Text1({*this, "Text1"}, {120, 4440, 6975, 1215}, TextBox::Kind::ReadOnlyPage),
      Label2({*this, "Label2"}, {5280, 120, 1785, 2535},
             QStringLiteral("Clicca sulla morlena per modificarne il colore"), Alignment::Center)
{
    Label2.SetFontSize(16);
    Label2.SetTransparent(true);
    Command1.Add(Verifica, Place{5280, 2760, 1785, 735});
    Command1.Add(Prossimo, Place{5280, 3600, 1815, 735});
    Command1(Verifica).SetPicture(QStringLiteral("controlla"));
    Command1(Verifica).SetSpokenName(QStringLiteral("Controlla"));
    Command1(Prossimo).SetPicture(QStringLiteral("prossimo"));
    Command1(Prossimo).SetSpokenName(QStringLiteral("Avanti"));
    Command1(Prossimo).SetEnabled(false);
    ShockwaveFlash1.SetSpokenName(QStringLiteral("Morlena da colorare"));
    Text1.SetSpokenName(QStringLiteral("Descrizione"));
    for (Button &pulsante : Command1)
        pulsante.SetMousePointer(platform::MousePointer::Custom);

    Command1.OnClick = [this](int indice) { Controlla(indice); };
    ShockwaveFlash1.OnFSCommand = [this](const QString &comando, const QString &) {
        Dipinto(comando);
    };
    CollegaLuce();
    Text1.OnMouseMove = OnMouseMove;
}

void FormEs4::Attiva()
{
    OccupaLoSchermo();
    PicMerlino.SetVisible(false);
    VestiPuntatori();
    VestiSfondo();
    VestiTesto(Text1);
    VestiPulsanti();
    CominciaDalPrimoLivello();
    PreparaScansione();
    AzzeraContatori();
    AbbassaBarraDiStato();
    ApriFilemorlene();
    Fatte = 0;
    GeneraEsercizio();
}

// --- Making the task ---

void FormEs4::GeneraEsercizio()
{
    if (PassaggioLivelli)
        CambiaLivello([] {});
    Command1(Verifica).SetEnabled(true);
    Command1(Prossimo).SetEnabled(false);
    // The part of a task that is given up must not stay marked beside the next one.
    if (ModoInput != 0 && QualeParte != 0)
        DeColoraContorno();
    Fatte = 0;
    ColoreCorrente = 0;
    for (int parte = 1; parte <= PartiDipinte; ++parte)
        Colorati(parte) = 0;
    ImpostaColori();
    ScriviFrase();
}

void FormEs4::ApriFilemorlene()
{
    // Parts take clicks, with the movie's own pointer (2) or the system's (3).
    ApriFigura(ShockwaveFlash1, ModoInput != 0 ? 0 : DisabilitaMousePersonalizzato ? 3 : 2);
    DoEvents();
}

void FormEs4::ImpostaColori()
{
    // The first failing statement leaves, and the pointer stays the hourglass: meant.
    Skipping([&] {
        SetMousePointer(platform::MousePointer::Hourglass);
        ShockwaveFlash1.SetBGColor(Colori(0, 0));
        for (int parte = 1; parte <= PartiDipinte; ++parte)
            DipingiParte(ShockwaveFlash1, parte, Grigio);
        for (const int parte : {Fumo, Nuvole})
            ColoreParte(parte) = Integer16(Draw(2));
        for (const int parte : {Fumo, Nuvole})
            MostraParte(ShockwaveFlash1, parte, ColoreParte(parte) != 0);
        SetMousePointer(platform::MousePointer::Default);
    });
}

void FormEs4::ScriviFrase()
{
    // Levels 1 and 4 affirm, 2 and 5 deny, 3 and 6 draw for each part before its colour.
    const auto nega = [this] { return Livello % 3 == 0 ? Draw(2) != 0 : Livello % 3 == 2; };
    for (int16_t parte = 1; parte <= PartiDipinte; ++parte)
        ScriviFraseDi(parte, nega());
    UnaAllaVolta(Livello) ? PresentaFrasi() : PresentaFraseUnica();
}

// Of four colours one satisfies a sentence that affirms, and three one that denies.
void FormEs4::ScriviFraseDi(int16_t parte, bool nega)
{
    const auto suo = Integer16(Draw(QuantiColori) + 1);
    ColoreParte(parte) = suo;
    Soluzioni(0, parte) = true;
    for (int colore = 1; colore <= QuantiColori; ++colore)
        Soluzioni(colore, parte) = (colore == suo) != nega;
    const QString apertura = nega ? AperturaNegativa(parte) : AperturaPositiva(parte);
    m_frasi(parte) = apertura + NomeColore(suo, parte) + QLatin1Char('.');
    FraseFatta(parte).clear();
    // Small letters stay as the language file has them.
    if (TipoCarattere == QStringLiteral("maiuscolo"))
        m_frasi(parte) = InMaiuscolo(m_frasi(parte));
}

// --- Showing it ---

void FormEs4::PresentaFrasi()
{
    if (Fatte != PartiDipinte) {
        ScegliParteDaFare();
        Text1.SetText(m_frasi(QualeParte));
        FraseFatta(QualeParte) = Fatta;
        if (ModoInput >= 1)
            ColoraContorno();
        return;
    }
    QString tutte;
    for (int parte = 1; parte <= PartiDipinte; ++parte)
        tutte += m_frasi(parte) + ACapo;
    Text1.SetText(tutte);
    Command1(Verifica).SetEnabled(false);
    Command1(Prossimo).SetEnabled(true);
    if (ModoInput > 0)
        AspettaIlProssimo();
}

void FormEs4::PresentaFraseUnica()
{
    QString tutte;
    Fatte = 0;
    for (int frase = 0; frase < PartiDipinte; ++frase) {
        ScegliParteDaFare();
        tutte += m_frasi(QualeParte) + ACapo;
        FraseFatta(QualeParte) = Fatta;
    }
    Text1.SetText(tutte);
    Fatte = 0;
    if (ModoInput == 0)
        return;
    for (int parte = 1; parte <= PartiDipinte; ++parte)
        FraseFatta(parte).clear();
    PresentaUnaPerVolta();
}

void FormEs4::PresentaUnaPerVolta()
{
    if (Fatte == PartiDipinte)
        return AspettaIlProssimo(); // the buttons' enabled state stays: meant
    ScegliParteDaFare();
    FraseFatta(QualeParte) = Fatta;
    if (ModoInput >= 1)
        ColoraContorno();
}

void FormEs4::ScegliParteDaFare()
{
    do
        QualeParte = Integer16(Draw(PartiDipinte) + 1);
    while (FraseFatta(QualeParte) == Fatta);
}

void FormEs4::AspettaIlProssimo()
{
    Evidenzia(Verifica, false);
    Evidenzia(Prossimo, true);
    ColoreCorrente = InAttesa;
}

// --- Answers by pointer ---

void FormEs4::Dipinto(const QString &comando)
{
    if (ModoInput != 0)
        return;
    const int parte = comando.toInt();
    if (parte > PartiDipinte)
        return;
    // One colour for the window and not one a part: a click on a closed part moves it on too.
    ProssimoColore();
    if (!Soluzioni(0, parte))
        return;
    Colorati(parte) = ColoreCorrente;
    DipingiParte(ShockwaveFlash1, parte, Colori(ColoreCorrente, 0));
}

void FormEs4::Controlla(int indice)
{
    if (ModoInput != 0)
        return;
    if (indice == Prossimo)
        GeneraEsercizio();
    else if (UnaAllaVolta(Livello))
        ControllaParte();
    else
        ControllaTutte();
}

bool FormEs4::Soddisfatta(int parte)
{
    return Soluzioni(Colorati(parte), parte);
}

// Judges the part being worked on, unless it is not painted yet; true when it is right.
bool FormEs4::ChiudiParteSeGiusta()
{
    if (Colorati(QualeParte) == 0)
        return false;
    if (!Soddisfatta(QualeParte)) {
        RispostaErrata();
        return false;
    }
    ContaEsatto();
    ScriviPannelloEsatti();
    SuonoEsatto();
    Soluzioni(0, QualeParte) = false;
    Fatte = Integer16(Fatte + 1);
    return true;
}

void FormEs4::ControllaParte()
{
    if (ChiudiParteSeGiusta())
        PresentaFrasi();
}

void FormEs4::ControllaTutte()
{
    for (int parte = 1; parte <= PartiDipinte; ++parte) {
        if (Colorati(parte) == 0) {
            // Nothing is said; the errors counted on the parts before it stay: meant.
            Fatte = 0;
            return;
        }
        if (Soddisfatta(parte)) {
            Soluzioni(0, parte) = false;
            Fatte = Integer16(Fatte + 1);
        } else {
            ContaErrato();
            ScriviPannelloErrati();
        }
    }
    if (Fatte != PartiDipinte) {
        SuonoErrato();
        Fatte = 0;
        return;
    }
    SuonoEsatto();
    Esatti += PartiDipinte;
    ScriviPannelloEsatti();
    Command1(Prossimo).SetEnabled(true);
    Command1(Verifica).SetEnabled(false);
}

// --- Answers by scanning: what moves is the colour of the marked part ---

void FormEs4::PreparaScansione()
{
    if (!AvviaScansione())
        return;
    for (Button &pulsante : Command1)
        pulsante.SetMousePointer(platform::MousePointer::Default);
    ColoreScansione = TrovaColoreScansione();
    Evidenzia(Verifica, true);
}

// There is no way backward here, also for the keys that point back: meant.
void FormEs4::PassoScansione(Gesto)
{
    if (ColoreCorrente == InAttesa)
        return;
    ProssimoColore();
    ColoraFrase();
}

void FormEs4::PassoAutomatico()
{
    PrendiFuocoAutomatico();
    PassoScansione(Gesto::Avanti);
}

void FormEs4::Scegli()
{
    if (ColoreCorrente == InAttesa) {
        Evidenzia(Prossimo, false);
        Evidenzia(Verifica, true);
        GeneraEsercizio();
        return;
    }
    // Each part is tested by itself, also where the pointer has one check for all.
    if (!ChiudiParteSeGiusta())
        return;
    DeColoraContorno();
    UnaAllaVolta(Livello) ? PresentaFrasi() : PresentaUnaPerVolta();
}

void FormEs4::ProssimoColore()
{
    ColoreCorrente = Integer16(ColoreCorrente % QuantiColori + 1);
}

void FormEs4::ColoraFrase()
{
    if (ModoInput == 0 || !Soluzioni(0, QualeParte))
        return;
    Colorati(QualeParte) = ColoreCorrente;
    DipingiParte(ShockwaveFlash1, QualeParte, Colori(ColoreCorrente, 0));
}

void FormEs4::ColoraContorno()
{
    DipingiContorno(ShockwaveFlash1, QualeParte, ColoreScansione);
}

void FormEs4::DeColoraContorno()
{
    DipingiContorno(ShockwaveFlash1, QualeParte, QStringLiteral("000000"));
}
