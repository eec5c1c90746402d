// Where the page set-up dialog is worked: a window and a picture to print, and a person at it.
#pragma once

#include "language/language.h"
#include "platform/controls/picture.h"
#include "printing/frm_stampa.h"
#include "printing/print_fields.h"
#include "printing/stampa_fpb.h"
#include "support/exercise_fixture.h"

#include <QImage>
#include <QLineEdit>
#include <QPixmap>
#include <QTest>

#include <functional>
#include <memory>

class Desk {
public:
    Desk()
    {
        AzzeraStampa();
        LinguaCorrente.clear();
        Owner = new platform::Form("Finestra", 6000, 4500);
        Picture = std::make_unique<platform::PictureBox>(platform::ControlId{*Owner, "Picture1", 3},
                                                         platform::Place{0, 0, 900, 600});
        Owner->Show();
        Owner->OnActivate = [this] { ++Activations; };
        Host.Printer.RealPixels = true;
    }
    ~Desk()
    {
        Picture.reset();
        AzzeraStampa();
    }
    Desk(const Desk &) = delete;
    Desk &operator=(const Desk &) = delete;

    RichiestaStampa Request() const
    {
        return {.Oggetto = Owner,
                .X = 10,
                .Y = 10,
                .W = 100,
                .H = 100,
                .Orientamento = 1,
                .Titolo = QStringLiteral("Prova")};
    }
    // Opens the dialog, in which `person` does something; it is closed then if it is not yet.
    void Open(const RichiestaStampa &request, const std::function<void(FrmStampa &)> &person)
    {
        Host.ExpectModal([&](platform::Form &form) {
            auto &dialog = dynamic_cast<FrmStampa &>(form);
            person(dialog);
            if (!dialog.Unloaded())
                dialog.cmdChiudi.OnClick();
        });
        StampaFPB(request);
    }
    void Open(const std::function<void(FrmStampa &)> &person) { Open(Request(), person); }

    void ExpectError(const QString &text, const char *routine = "StampaFPB")
    {
        Host.ExpectBox(platform::Box{.Text = text,
                                     .Title = QStringLiteral(" Errore in frmStampaFPB/") +
                                              QString::fromLatin1(routine),
                                     .Icon = platform::BoxIcon::Critical});
    }

    ScriptedHost Host;
    platform::Form *Owner = nullptr;
    std::unique_ptr<platform::PictureBox> Picture;
    int Activations = 0;
};

inline QList<int> PlaceOf(const platform::VisualControl &control)
{
    return {static_cast<int>(control.Left()), static_cast<int>(control.Top()),
            static_cast<int>(control.Width()), static_cast<int>(control.Height())};
}

inline void Type(platform::TextBox &box, const QString &keys)
{
    auto *line = static_cast<QLineEdit *>(box.Widget());
    line->selectAll();
    QTest::keyClicks(line, keys);
}

inline QImage Preview(const FrmStampa &dialog)
{
    return dialog.picPreview.Widget()->grab().toImage();
}

// Whether the pixel of the preview shows the sheet.
inline bool IsPaper(const QImage &image, int x, int y)
{
    return image.pixelColor(x, y) == QColor(Qt::white);
}
