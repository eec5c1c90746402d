#include "support/windows/form1.h"

#include "printing/stampa_fpb.h"
#include "support/full_screen.h"

#include <array>

using namespace platform;

namespace {

constexpr double PuntiInvito = 60; // larger than its place: drawn as large as it fits

} // namespace

Form1::Form1()
    : Form("Form1", 7200, 4200),
      Label1({*this, "Label1"}, {240, 120, 6720, 540},
             QStringLiteral("Clicca sulla morlena che vuoi stampare"), Alignment::Center),
      Picture1(*this, "Picture1"), mnuesci({*this, "mnuesci"}, QStringLiteral("&Esci"))
{
    SetCaption(QStringLiteral("Figura da colorare"));
    Label1.SetFontSize(PuntiInvito);
    Label1.SetTransparent(true);
    constexpr std::array<const char *, 3> nomi = {"Casetta con fiori e fumo",
                                                  "Casetta con un albero, il sole e un gatto",
                                                  "Due casette fra le colline"};
    for (int i = 0; i < 3; ++i) {
        PictureBox &disegno = Picture1.Add(i, Place{240 + 2280.0 * i, 780, 2160, 3240},
                                           QStringLiteral("da_colorare\\casetta_%1").arg(i));
        disegno.SetBackColor(Rgb(255, 255, 255));
        disegno.SetBordered(true);
        disegno.SetMousePointer(platform::MousePointer::Custom);
        disegno.SetSpokenName(QString::fromUtf8(nomi.at(static_cast<size_t>(i))));
    }

    OnLoad = [this] { CaricaFinestra(*this); };
    OnResize = RidimensionaFinestra;
    Picture1.OnClick = [this](int indice) {
        Control &disegno = Picture1(indice);
        StampaFPB({.Oggetto = &disegno,
                   .X = 10,
                   .Y = 10,
                   .W = 100,
                   .H = 100,
                   .Orientamento = 1,
                   .Titolo = QString()});
    };
    mnuesci.OnClick = [this] { Unload(); };
}
