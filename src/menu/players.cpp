// The players of the menu: a player is a profile file, and the menu dresses itself for the current
// one.
#include "menu/form_menu.h"

#include "core/lettering.h"
#include "core/profile.h"
#include "core/shared_state.h"
#include "core/start.h"
#include "frame/scanning.h"
#include "menu/menu_items.h"
#include "platform/base/errors.h"
#include "platform/files/files.h"

#include <algorithm>

using namespace platform;

namespace {

constexpr double MisuraIniziale = 14; // points

} // namespace

void FormMenu::RecuperaUtenti()
{
    Skipping([&] { Combo1.Clear(); });
    QStringList nomi;
    // A look-up that fails leaves the list as it stands.
    const int errore = Skipping([&] {
        nomi = DirList(CartellaImpostazioni() + QStringLiteral("*.ini"), LookUp::FilesAndFolders);
    });
    if (errore == 0)
        for (const QString &nome : nomi) {
            const QString utente = nome.chopped(4);
            Skipping([&] {
                Combo1.AddItem(TipoCarattere == QStringLiteral("maiuscolo") ? InMaiuscolo(utente)
                                                                            : utente);
            });
        }
    // Choosing by code is a click: the profile is saved and read back. Of several, the last wins.
    for (int i = 0; i < Combo1.ListCount(); ++i)
        if (InMaiuscolo(Combo1.List(i)) == InMaiuscolo(NomeUtente))
            Skipping([&] { Combo1.SetListIndex(i); });
    Skipping([&] { Combo1.SetVisible(Combo1.ListCount() > 1); });
}

void FormMenu::CambiaUtente()
{
    const QString vecchio = NomeUtente;
    SalvaImpostazioni();
    NomeUtente = Combo1.Text();
    FileUtente = CartellaImpostazioni() + NomeUtente + QStringLiteral(".ini");
    CaricaImpostazioni();
    if (InMinuscolo(vecchio) == InMinuscolo(NomeUtente))
        return;
    for (int riga = 0; riga <= NumeroEserciziEseguiti; ++riga)
        for (int colonna = 0; colonna <= 3; ++colonna)
            EserciziEseguiti(riga, colonna).clear();
    NumeroEserciziEseguiti = 0;
    ImpostaUtente();
}

void FormMenu::ImpostaUtente()
{
    if (!ColoriVari)
        SetBackColor(ToColor(ColoreSfondo));
    for (Label &titolo : Command1)
        titolo.SetBackColor(ModoInput == 0 ? BackColor() : ToColor(ColoreBottoni));
    // The language's own casing is overruled, in cursive too: meant.
    for (Label &titolo : Command1)
        titolo.SetCaption(TipoCarattere == QStringLiteral("maiuscolo")
                              ? InMaiuscolo(titolo.Caption())
                              : InMinuscolo(titolo.Caption()));
    for (Label &titolo : Command1) {
        titolo.SetFontName(FontCorrente);
        titolo.SetForeColor(ToColor(ColoreFont));
    }
    const auto puntatore = DisabilitaMousePersonalizzato ? platform::MousePointer::Default
                                                         : platform::MousePointer::Custom;
    for (Label &titolo : Command1)
        titolo.SetMousePointer(puntatore);
    for (Image &figura : Image1)
        figura.SetMousePointer(puntatore);
    DimensionaCaratteri();
    mnuEserciziEseguiti.SetVisible(SalvaUtente);
    ImpostaModoInput();
    Combo1.SetFontSize(std::max(MisuraIniziale, Command1(0).Font().Size - 10));
}

// The measured text stands for the longest word of the captions, so the size follows the screen.
void FormMenu::DimensionaCaratteri()
{
    LabelDimensionaFont.SetCaption(QStringLiteral("a"));
    LabelDimensionaFont.SetFontSize(MisuraIniziale);
    LabelDimensionaFont.SetCaption(LabelDimensionaFont.Caption() + QStringLiteral(" DIFFERENZE  "));
    while (LabelDimensionaFont.Width() < Command1(0).Width())
        LabelDimensionaFont.SetFontSize(LabelDimensionaFont.Font().Size + 1);
    for (Label &titolo : Command1)
        titolo.SetFontSize(LabelDimensionaFont.Font().Size);
}

void FormMenu::ImpostaModoInput()
{
    switch (ModoInput) {
    case 0:
        PictureScansioneManuale.SetVisible(false);
        PictureScansioneAutomatica.SetVisible(false);
        Timer1.SetEnabled(false);
        return;
    case 1:
    case 3:
        PictureScansioneManuale.SetVisible(true);
        PictureScansioneManuale.SetBackColor(BackColor());
        PictureScansioneAutomatica.SetVisible(false);
        Timer1.SetEnabled(true);
        PosizioneScansione = Esci;
        break;
    case 2:
        PictureScansioneAutomatica.SetVisible(true);
        PictureScansioneAutomatica.SetBackColor(BackColor());
        Timer1.SetEnabled(true);
        Timer1.SetInterval(IntervalloScansione());
        // Nothing is lit: the first tick lights item 1: meant.
        PosizioneScansione = 0;
        break;
    default:
        return;
    }
    for (Label &titolo : Command1)
        titolo.SetMousePointer(platform::MousePointer::Default);
    // Wraps round from the last item, so that item 0 is lit at once.
    if (ModoInput == 1)
        TastoManuale(KeySpace);
    if (ModoInput == 3)
        TastoManuale(KeyRight);
}
