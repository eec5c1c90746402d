// Printers that exist in a test only: they answer as told, fail at the step they are told to, and
// keep what was printed.
#pragma once

#include "platform/printing/machine_printing.h"

#include <QList>
#include <QMap>
#include <QStringList>

#include <functional>
#include <memory>

struct FakeSheet {
    int HorzSize = 200; // of the upright sheet
    int VertSize = 280;
    int HorzRes = 4000;
    int VertRes = 5600;
};

struct FakePage {
    QList<platform::DeviceRectangle> Rectangles;
    QList<platform::Bitmap> Bitmaps; // with a copy of the bits
    QList<platform::PageText> Texts;
    QList<platform::PageLine> Lines;
};

struct FakeDocument {
    QString Printer;
    platform::DeviceMode Mode;
    QString Title;
    QList<FakePage> Pages;
    bool Ended = false; // sent; the others were taken back
};

// In the place of an answer: the step raises this error.
constexpr int RaisesPrinterError = 482000;

class FakePrinting : public platform::Printing {
public:
    QStringList Names{QStringLiteral("Prima"), QStringLiteral("Seconda")};
    QString Default = QStringLiteral("Prima");
    QMap<QString, FakeSheet> Sheets{{QStringLiteral("Prima"), {}},
                                    {QStringLiteral("Seconda"), {100, 100, 1000, 1000}}};

    // What the next calls of a step answer, one after another; then they succeed again. Steps are
    // named as the calls: "StartDocument", "ReadRows", "Allocate" ...
    QMap<QString, QList<int>> Answers;
    // What the driver's dialog does; cancelled without one.
    std::function<int(platform::DeviceMode &)> Dialog;

    // What windows and pictures look like to a reader of pixels.
    bool GivesBits = true;
    int Planes = 1;
    int BitsPerPixel = 24;
    int PixelWidth = 41; // rows of 123 bytes, so that they need filling
    int PixelHeight = 30;
    uint64_t Context = 7;
    uint64_t Copy = 8;
    bool RealPixels = false; // those of the form or the picture instead

    QStringList Calls;                  // "OpenPrinter Prima", ...
    QList<platform::DeviceMode> Judged; // records as the driver got them
    QList<FakeDocument> Documents;      // in the order of their start
    int OpenPrinters = 0;
    int Devices = 0;       // alive
    int Allocated() const; // blocks of bits alive

    QStringList Printers() override;
    QString DefaultPrinter() override;
    uint64_t OpenPrinter(const QString &name) override;
    void ClosePrinter(uint64_t printer) override;
    int JudgeMode(uint64_t printer, const QString &name, const platform::DeviceMode &in,
                  platform::DeviceMode &out) override;
    int AskMode(platform::Form &owner, uint64_t printer, const QString &name,
                const platform::DeviceMode &in, platform::DeviceMode &out) override;
    std::unique_ptr<platform::PrintDevice> CreateDevice(const QString &name,
                                                        const platform::DeviceMode &mode) override;
    std::unique_ptr<platform::BitmapSource> SourceOfWindow(platform::Form &form) override;
    std::unique_ptr<platform::BitmapSource> SourceOfClient(platform::Form &form) override;
    std::unique_ptr<platform::BitmapSource> SourceOfPicture(platform::PictureBox &box) override;
    std::shared_ptr<QByteArray> Allocate(qsizetype bytes) override;

    // Takes the step's answer, `good` when none is left.
    int Answer(const char *step, int good);

private:
    std::unique_ptr<platform::BitmapSource> Source(const char *kind,
                                                   std::unique_ptr<platform::BitmapSource> real);

    platform::MachinePrinting m_machine;
    QList<std::weak_ptr<QByteArray>> m_blocks;
};
