#include "support/windows/form_info.h"

#include "core/windows.h"
#include "language/language.h"
#include "platform/base/errors.h"
#include "platform/files/files.h"
#include "support/documents.h"
#include "support/full_screen.h"

#include <QStringList>

using namespace platform;

namespace {

// Points. Larger than their places on most screens: a text is drawn as large as it fits.
constexpr double PuntiTitolo = 40;
constexpr double PuntiTesto = 22;
constexpr double PuntiPulsante = 28;

QString Testo(const char *testo)
{
    return QString::fromUtf8(testo);
}

} // namespace

FormInfo::FormInfo()
    : Form("FormInfo", 7200, 5400),
      Image1({*this, "Image1"}, {240, 360, 2400, 2640}, Testo("libro")),
      Label1({*this, "Label1"}, {2880, 360, 4080, 480}),
      Label2({*this, "Label2"}, {2880, 900, 4080, 840}),
      Label3({*this, "Label3"}, {2880, 1860, 4080, 1260}),
      Label4({*this, "Label4"}, {240, 3240, 6720, 1020}),
      Command1({*this, "Command1"}, {2700, 4440, 1800, 720}, Testo("Chiudi"))
{
    SetCaption(Testo("Informazioni"));
    Image1.SetSpokenName(Testo("Apri il documento su MorleneKVT"));
    Image1.SetMousePointer(platform::MousePointer::Custom);
    Image1.SetTabStop(true);
    for (Label *etichetta : {&Label1, &Label2, &Label3, &Label4}) {
        etichetta->SetFontSize(PuntiTesto);
        etichetta->SetTransparent(true);
    }
    Label1.SetFontSize(PuntiTitolo);
    Label1.SetFontBold(true);
    Command1.SetFontSize(PuntiPulsante);
    Command1.SetTakesFocus(true);

    OnLoad = [this] { CaricaFinestra(*this); };
    OnResize = RidimensionaFinestra;
    OnActivate = [this] { Attiva(); };
    Command1.OnClick = [this] {
        MostraFinestra(QStringLiteral("FormMenu"));
        Unload();
    };
    Image1.OnClick = [] { ApriDocumento(AppPath() + QStringLiteral("\\documento.pdf")); };
}

void FormInfo::Attiva()
{
    Move(0, 0, ScreenWidth(), ScreenHeight());
    // The way back has the keyboard, not the picture that is read first.
    Skipping([this] { Command1.SetFocus(); });
    Label1.SetCaption(Testo("Software di MorleneKVT"));
    Label2.SetCaption(Testo("MorleneKVT, versione " MORLENE_VERSION
                            "\nEsercizi di logica e di lettura per bambini"));
    Label3.SetCaption(
        Testo("Si usa liberamente a scuola e a casa.\n"
              "Il corsivo è Playwrite Italia Tradizionale di TypeTogether, con la licenza SIL Open "
              "Font License 1.1."));
    QStringList righe;
    for (const char *chiave : {"9996", "9997", "9998", "9999"})
        if (const QString riga = MLSTesto(QString::fromLatin1(chiave)); !riga.isEmpty())
            righe << riga;
    Label4.SetCaption(righe.join(QLatin1Char('\n')));
}
