#include "support/fake_printing.h"

#include "platform/base/errors.h"
#include "platform/controls/form.h"

#include <algorithm>
#include <utility>

using namespace platform;

namespace {

class FakeDevice : public PrintDevice {
public:
    FakeDevice(FakePrinting &owner, QString name, DeviceMode mode)
        : m_owner(owner), m_name(std::move(name)), m_mode(std::move(mode))
    {
        ++owner.Devices;
    }
    ~FakeDevice() override { --m_owner.Devices; }
    FakeDevice(const FakeDevice &) = delete;
    FakeDevice &operator=(const FakeDevice &) = delete;

    int Capability(DeviceCapability which) const override
    {
        const FakeSheet sheet = m_owner.Sheets.value(m_name);
        const bool across = m_mode.Orientation == 2;
        switch (which) {
        case DeviceCapability::HorzSize:
            return across ? sheet.VertSize : sheet.HorzSize;
        case DeviceCapability::VertSize:
            return across ? sheet.HorzSize : sheet.VertSize;
        case DeviceCapability::HorzRes:
            return across ? sheet.VertRes : sheet.HorzRes;
        case DeviceCapability::VertRes:
            return across ? sheet.HorzRes : sheet.VertRes;
        }
        return 0;
    }
    int StartDocument(const QString &title) override
    {
        const int answer = m_owner.Answer("StartDocument", 1);
        if (answer > 0)
            m_owner.Documents.append({m_name, m_mode, title, {}, false});
        return answer;
    }
    int StartPage() override
    {
        // There is a page whatever is answered, so that the later steps have a place.
        m_owner.Documents.last().Pages.append(FakePage());
        return m_owner.Answer("StartPage", 1);
    }
    int StretchBitmap(const DeviceRectangle &place, const Bitmap &bitmap) override
    {
        const int answer = m_owner.Answer("StretchBitmap", bitmap.Height);
        Page().Rectangles.append(place);
        Bitmap kept = bitmap;
        if (kept.Bits)
            kept.Bits = std::make_shared<QByteArray>(*kept.Bits);
        Page().Bitmaps.append(kept);
        return answer;
    }
    int EndPage() override { return m_owner.Answer("EndPage", 1); }
    int EndDocument() override
    {
        const int answer = m_owner.Answer("EndDocument", 1);
        m_owner.Documents.last().Ended = answer > 0;
        return answer;
    }
    void Draw(const PageText &text) override { Page().Texts.append(text); }
    void Draw(const PageLine &line) override { Page().Lines.append(line); }

private:
    FakePage &Page() { return m_owner.Documents.last().Pages.last(); }

    FakePrinting &m_owner;
    QString m_name;
    DeviceMode m_mode;
};

class FakeSource : public BitmapSource {
public:
    FakeSource(FakePrinting &owner, std::unique_ptr<BitmapSource> real)
        : m_owner(owner), m_real(std::move(real))
    {
    }
    bool GivesBits() const override { return m_owner.GivesBits; }
    int Planes() const override { return m_owner.Planes; }
    int BitsPerPixel() const override { return m_owner.BitsPerPixel; }
    int Width() const override { return m_real ? m_real->Width() : m_owner.PixelWidth; }
    int Height() const override { return m_real ? m_real->Height() : m_owner.PixelHeight; }
    uint64_t Context() const override { return m_owner.Context; }
    uint64_t Copy() const override { return m_owner.Copy; }
    int ReadRows(Bitmap &bitmap) override
    {
        const int answer = m_owner.Answer("ReadRows", Height());
        if (m_real && answer > 0)
            return m_real->ReadRows(bitmap);
        bitmap.Bits->fill('\x55');
        return answer;
    }

private:
    FakePrinting &m_owner;
    std::unique_ptr<BitmapSource> m_real;
};

} // namespace

int FakePrinting::Answer(const char *step, int good)
{
    const QString name = QString::fromLatin1(step);
    Calls << name;
    QList<int> &answers = Answers[name];
    if (answers.isEmpty())
        return good;
    const int answer = answers.takeFirst();
    if (answer == RaisesPrinterError)
        throw RunTimeError(PrinterError);
    return answer;
}

int FakePrinting::Allocated() const
{
    return static_cast<int>(std::count_if(m_blocks.begin(), m_blocks.end(),
                                          [](const auto &block) { return !block.expired(); }));
}

QStringList FakePrinting::Printers()
{
    Calls << QStringLiteral("Printers");
    return Names;
}

QString FakePrinting::DefaultPrinter()
{
    Calls << QStringLiteral("DefaultPrinter");
    return Default;
}

uint64_t FakePrinting::OpenPrinter(const QString &name)
{
    Calls << QStringLiteral("OpenPrinter ") + name;
    if (!Names.contains(name) || Answer("OpenPrinter", 1) == 0)
        return 0;
    return static_cast<uint64_t>(++OpenPrinters);
}

void FakePrinting::ClosePrinter(uint64_t)
{
    Calls << QStringLiteral("ClosePrinter");
    --OpenPrinters;
}

int FakePrinting::JudgeMode(uint64_t, const QString &name, const DeviceMode &in, DeviceMode &out)
{
    Judged << in;
    const int answer = Answer("JudgeMode", 1);
    if (answer < 0)
        return answer;
    out = in;
    out.DeviceName = name;
    if (out.Orientation != 2)
        out.Orientation = 1;
    if (out.Copies < 1)
        out.Copies = 1;
    out.Fields = 0x1;
    return answer;
}

int FakePrinting::AskMode(Form &, uint64_t, const QString &name, const DeviceMode &in,
                          DeviceMode &out)
{
    Calls << QStringLiteral("AskMode ") + name;
    Judged << in;
    DeviceMode mode = in;
    mode.DeviceName = name;
    const int answer = Dialog ? Dialog(mode) : 2;
    if (answer == 1)
        out = mode;
    return answer;
}

std::unique_ptr<PrintDevice> FakePrinting::CreateDevice(const QString &name, const DeviceMode &mode)
{
    Calls << QStringLiteral("CreateDevice ") + name;
    if (!Names.contains(name) || Answer("CreateDevice", 1) == 0)
        return {};
    return std::make_unique<FakeDevice>(*this, name, mode);
}

std::unique_ptr<BitmapSource> FakePrinting::Source(const char *kind,
                                                   std::unique_ptr<BitmapSource> real)
{
    Calls << QString::fromLatin1(kind);
    if (!RealPixels)
        real.reset();
    return std::make_unique<FakeSource>(*this, std::move(real));
}

std::unique_ptr<BitmapSource> FakePrinting::SourceOfWindow(Form &form)
{
    return Source("SourceOfWindow", m_machine.SourceOfWindow(form));
}

std::unique_ptr<BitmapSource> FakePrinting::SourceOfClient(Form &form)
{
    return Source("SourceOfClient", m_machine.SourceOfClient(form));
}

std::unique_ptr<BitmapSource> FakePrinting::SourceOfPicture(PictureBox &box)
{
    return Source("SourceOfPicture", m_machine.SourceOfPicture(box));
}

std::shared_ptr<QByteArray> FakePrinting::Allocate(qsizetype bytes)
{
    if (Answer("Allocate", 1) == 0)
        return {};
    auto block = m_machine.Allocate(bytes);
    m_blocks.append(block);
    return block;
}
