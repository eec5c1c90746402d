#include "support/windows/form_avvio.h"

#include "core/windows.h"
#include "support/full_screen.h"

using namespace platform;

namespace {

// Points. Larger than their places on any screen: a text is drawn as large as it fits.
constexpr double PuntiTitolo = 240;
constexpr double PuntiData = 60;
constexpr int Gradini = 256; // from white at the top to pure blue at the bottom

} // namespace

FormAvvio::FormAvvio()
    : Form("FormAvvio", 7200, 5400),
      Image1({*this, "Image1"}, {960, 1400, 5280, 2880}, QStringLiteral("titolo")),
      Label2(*this, "Label2"), Command1({*this, "Command1"}, {2880, 4440, 1440, 840})
{
    SetCaption(QStringLiteral("MorleneKVT"));
    SetBackColor(Rgb(0, 0, 255));
    Label &titolo =
        Label2.Add(0, Place{240, 180, 6720, 960}, QStringLiteral("MorleneKVT"), Alignment::Center);
    titolo.SetFontSize(PuntiTitolo);
    Label &data =
        Label2.Add(1, Place{240, 1080, 6720, 300}, QStringLiteral("02/10/2005"), Alignment::Center);
    data.SetFontSize(PuntiData);
    for (Label &etichetta : Label2) {
        etichetta.SetFontName(QStringLiteral("Comic Sans MS"));
        etichetta.SetFontBold(true);
        etichetta.SetTransparent(true);
    }
    Image1.SetSpokenName(QStringLiteral("Una morlena su un prato fiorito"));
    Command1.SetPicture(QStringLiteral("avanti"));
    Command1.SetSpokenName(QStringLiteral("Avanti"));
    Command1.SetTakesFocus(true);

    OnLoad = [this] { CaricaFinestra(*this); };
    OnResize = RidimensionaFinestra;
    OnActivate = [this] { Attiva(); };
    Command1.OnClick = [this] {
        MostraFinestra(QStringLiteral("FormMenu"));
        Unload();
    };
}

void FormAvvio::Attiva()
{
    Move(0, 0, ScreenWidth(), ScreenHeight());
    SetDrawingUnits(Gradini);
    // The first band lies above the window, and below the last one stands the back colour.
    for (int i = 0; i < Gradini; ++i)
        DrawBand(i - 1, i, Rgb(255 - i, 255 - i, 255));
}
