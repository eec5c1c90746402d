// Printers as this program needs them: which there are and which is the default, how large their
// sheet is, documents of pages, and a bitmap stretched into a rectangle of device pixels. Nothing
// here raises an error or waits for a printing system that does not answer.
#pragma once

#include "platform/base/font.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <memory>

namespace platform {

class Form;
class PictureBox;

// The part of a driver's record that the program knows.
struct DeviceMode {
    QString DeviceName;
    uint32_t Fields = 0;     // which of the fields count, one bit each
    int16_t Orientation = 0; // 1 upright, 2 across; any other: the driver's own
    int16_t Copies = 0;      // below 1: the driver's own
    QString Paper;           // the driver's name of it; empty: the driver's own

    bool operator==(const DeviceMode &other) const = default;
};

// Rows from the bottom to the top or from the top to the bottom are the maker's affair: here the
// first row is the top one. A row is filled up to a multiple of 4 bytes.
struct Bitmap {
    int Width = 0; // pixels
    int Height = 0;
    int Planes = 0;
    int BitsPerPixel = 0;
    std::shared_ptr<QByteArray> Bits; // 24 bits a pixel: blue, green, red
};

enum class DeviceCapability {
    HorzSize = 4, // printable size, whole millimetres
    VertSize = 6,
    HorzRes = 8, // printable size, device pixels
    VertRes = 10,
};

struct DeviceRectangle {
    int X = 0; // device pixels from the corner of the printable area
    int Y = 0;
    int Width = 0;
    int Height = 0;
};

// What is written on a page apart from bitmaps; places and sizes in twips from the corner of the
// printable area, the pen's width in twips too.
struct PageText {
    double X = 0;
    double Y = 0; // top of the line
    QString Text;
    platform::Font Font;
};
struct PageLine {
    double X1 = 0;
    double Y1 = 0;
    double X2 = 0;
    double Y2 = 0;
    double Pen = 0;
};

// A device to print on: pages of one document after another. It takes back an unfinished document
// when it goes.
class PrintDevice {
public:
    virtual ~PrintDevice() = default;

    virtual int Capability(DeviceCapability which) const = 0;
    // Results as the classic calls give them: a document's number, -1 for a failure; 1, below 1 for
    // a failure; rows drawn, 0 for a failure; 1, below 1; 1, 0 for a failure.
    virtual int StartDocument(const QString &title) = 0;
    virtual int StartPage() = 0;
    virtual int StretchBitmap(const DeviceRectangle &place, const Bitmap &bitmap) = 0;
    virtual int EndPage() = 0;
    virtual int EndDocument() = 0;

    virtual void Draw(const PageText &text) = 0;
    virtual void Draw(const PageLine &line) = 0;
};

// What a window or a picture box shows, as something to read pixels from.
class BitmapSource {
public:
    virtual ~BitmapSource() = default;

    virtual bool GivesBits() const = 0;
    virtual int Planes() const = 0;
    virtual int BitsPerPixel() const = 0; // of one plane
    virtual int Width() const = 0;        // pixels
    virtual int Height() const = 0;
    // Handles as numbers, 0 for one that could not be made.
    virtual uint64_t Context() const = 0;
    virtual uint64_t Copy() const = 0;
    // Fills the bits, whose size the caller has set; the rows read, 0 for a failure.
    virtual int ReadRows(Bitmap &bitmap) = 0;
};

class Printing {
public:
    virtual ~Printing() = default;

    virtual QStringList Printers() = 0;
    virtual QString DefaultPrinter() = 0; // empty when there is none

    // A number for an open printer, 0 for one that cannot be opened.
    virtual uint64_t OpenPrinter(const QString &name) = 0;
    virtual void ClosePrinter(uint64_t printer) = 0;
    // Lets the driver judge a record: what it does not know becomes its own. 1, below 0 for a
    // failure, which leaves `out` alone.
    virtual int JudgeMode(uint64_t printer, const QString &name, const DeviceMode &in,
                          DeviceMode &out) = 0;
    // The same with the driver's own dialog: 1 confirmed, 2 cancelled.
    virtual int AskMode(Form &owner, uint64_t printer, const QString &name, const DeviceMode &in,
                        DeviceMode &out) = 0;

    // Nothing when the printer is not there.
    virtual std::unique_ptr<PrintDevice> CreateDevice(const QString &name,
                                                      const DeviceMode &mode) = 0;

    // The whole window as it stands, whatever covers it.
    virtual std::unique_ptr<BitmapSource> SourceOfWindow(Form &form) = 0;
    // The window's inner part, without its menu.
    virtual std::unique_ptr<BitmapSource> SourceOfClient(Form &form) = 0;
    // The picture of the box, which must have been fixed into a bitmap.
    virtual std::unique_ptr<BitmapSource> SourceOfPicture(PictureBox &box) = 0;
    // Room for bits; nothing when there is none.
    virtual std::shared_ptr<QByteArray> Allocate(qsizetype bytes) = 0;
};

// Bytes of the bits of a bitmap, each row filled up to a multiple of 4; 0 for a count of bits that
// no picture of this program has (1, 4, 8, 16 and 24 are known).
qsizetype BytesOfBitmap(int bitsPerPixel, int width, int height);

} // namespace platform
