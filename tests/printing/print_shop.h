// Where the print engine is tried: a window, a picture, and a printer that fails as told.
#pragma once

#include "language/language.h"
#include "platform/controls/picture.h"
#include "printing/print_engine.h"
#include "printing/print_fields.h"
#include "support/scripted_host.h"

#include <QList>
#include <QString>

#include <memory>

// A window with a picture, a printer with a sheet of 200 by 280 mm at 20 pixels a millimetre.
class Shop {
public:
    Shop()
    {
        AzzeraStampa();
        LinguaCorrente.clear();
        Window = std::make_unique<platform::Form>("Finestra", 3000, 1500);
        Picture = std::make_unique<platform::PictureBox>(
            platform::ControlId{*Window, "Picture1", 0}, platform::Place{0, 0, 900, 600});
        Stampa.NomeStampante = QStringLiteral("Prima");
        Stampa.NumeroCopie = 1;
    }
    ~Shop()
    {
        AzzeraStampa();
        // The picture goes before the window that it stands on.
        Picture.reset();
        Window.reset();
    }
    Shop(const Shop &) = delete;
    Shop &operator=(const Shop &) = delete;

    FakePrinting &Printer() { return Host.Printer; }

    void ExpectError(const QString &routine, const QString &text)
    {
        Host.ExpectBox(platform::Box{.Text = text,
                                     .Title = QStringLiteral(" Errore in frmStampaFPB/") + routine,
                                     .Icon = platform::BoxIcon::Critical});
    }
    void ExpectQuestion(platform::BoxAnswer answer)
    {
        Host.ExpectBox(
            platform::Box{.Text = MLSTesto(QStringLiteral("0093")) + QStringLiteral("\n") +
                                  MLSTesto(QStringLiteral("0094")) + QStringLiteral("\n") +
                                  MLSTesto(QStringLiteral("0095")) + QStringLiteral("\n\n") +
                                  MLSTesto(QStringLiteral("0096")),
                          .Title = MLSTesto(QStringLiteral("0097")),
                          .Icon = platform::BoxIcon::Question,
                          .Buttons = platform::BoxButtons::YesNoCancel},
            answer);
    }

    bool PrintWindow(int x, int y, int w, int h, const QString &title = {})
    {
        return StampaOggetto(Window.get(), x, y, w, h, title);
    }
    bool PrintPicture(int x, int y, int w, int h)
    {
        return StampaOggetto(static_cast<platform::Control *>(Picture.get()), x, y, w, h, {});
    }

    // The one rectangle that was printed last.
    platform::DeviceRectangle Printed()
    {
        if (Printer().Documents.isEmpty() || Printer().Documents.last().Pages.size() != 1 ||
            Printer().Documents.last().Pages.first().Rectangles.size() != 1)
            return {-1, -1, -1, -1};
        return Printer().Documents.last().Pages.first().Rectangles.first();
    }

    ScriptedHost Host;
    std::unique_ptr<platform::Form> Window;
    std::unique_ptr<platform::PictureBox> Picture;
};

inline QList<int> Numbers(const platform::DeviceRectangle &r)
{
    return {r.X, r.Y, r.Width, r.Height};
}
