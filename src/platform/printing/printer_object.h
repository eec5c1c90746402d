// The printer as a page to write on from top to bottom: texts on lines, and straight lines. Places
// and sizes are twips.
#pragma once

#include "platform/controls/form.h"
#include "platform/host/printing.h"

#include <memory>

namespace platform {

class PrinterObject {
public:
    // The default printer, for a document of that name; 1 upright, 2 across. Error 482 when there
    // is none, and from each call when it fails.
    PrinterObject(const QString &title, int16_t orientation);

    platform::Font Font{QStringLiteral("arial"), 10};
    double CurrentX = 0;
    double CurrentY = 0;
    int DrawWidth = 1; // of the pen, dots of a 600th of an inch

    // Kept free on all four sides of the printable area; everything counts from inside it.
    double Margin = 0;

    double ScaleWidth() const;
    double ScaleHeight() const;
    double TextWidth(const QString &text) const;
    double TextHeight() const; // from line to line
    double PenWidth() const;   // of the pen, twips

    // Without `endsLine` the next text follows on the same line.
    void Print(const QString &text, bool endsLine = true);
    void Line(double x1, double y1, double x2, double y2);
    void Rectangle(double x1, double y1, double x2, double y2);
    void NewPage();
    // Sends the document; one that is not sent is taken back.
    void EndDoc();

private:
    std::unique_ptr<PrintDevice> m_device;
};

// The hourglass over a form while it lives: handing over a document may take a while.
class Hourglass {
public:
    explicit Hourglass(Form &form);
    ~Hourglass();
    Hourglass(const Hourglass &) = delete;
    Hourglass &operator=(const Hourglass &) = delete;

private:
    Form &m_form;
    MousePointer m_former;
};

// The client area of a form at 96 pixels an inch, from the printable corner, made smaller to fit,
// on the default printer as it is set. Error 482 when it cannot be printed.
void PrintForm(Form &form);

} // namespace platform
