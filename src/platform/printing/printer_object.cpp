#include "platform/printing/printer_object.h"

#include "platform/base/errors.h"
#include "platform/host/host.h"
#include "platform/printing/printer_font.h"

#include <QFont>
#include <QFontMetricsF>

#include <algorithm>
#include <cmath>

namespace platform {

namespace {

constexpr double TwipsPerMillimetre = 1440 / 25.4;
constexpr double TwipsPerDot = 1440.0 / 600;

void Demand(bool done)
{
    if (!done)
        throw RunTimeError(PrinterError);
}

std::unique_ptr<PrintDevice> DefaultDevice(const DeviceMode &mode)
{
    const QString name = host().Printers().DefaultPrinter();
    Demand(!name.isEmpty());
    auto device = host().Printers().CreateDevice(name, mode);
    Demand(device != nullptr);
    return device;
}

} // namespace

QFont FontInTwips(const Font &font)
{
    constexpr double TwipsPerPoint = 20;
    QFont result(font.Name);
    result.setPixelSize(std::max(1, static_cast<int>(std::lround(font.Size * TwipsPerPoint))));
    result.setBold(font.Bold);
    result.setHintingPreference(QFont::PreferNoHinting);
    return result;
}

PrinterObject::PrinterObject(const QString &title, int16_t orientation)
    : m_device(DefaultDevice(
          {.DeviceName = {}, .Fields = 0, .Orientation = orientation, .Copies = 1, .Paper = {}}))
{
    Demand(m_device->StartDocument(title) > 0 && m_device->StartPage() > 0);
}

double PrinterObject::ScaleWidth() const
{
    return m_device->Capability(DeviceCapability::HorzSize) * TwipsPerMillimetre - 2 * Margin;
}

double PrinterObject::ScaleHeight() const
{
    return m_device->Capability(DeviceCapability::VertSize) * TwipsPerMillimetre - 2 * Margin;
}

double PrinterObject::TextWidth(const QString &text) const
{
    return QFontMetricsF(FontInTwips(Font)).horizontalAdvance(text);
}

double PrinterObject::TextHeight() const
{
    return QFontMetricsF(FontInTwips(Font)).height();
}

double PrinterObject::PenWidth() const
{
    return DrawWidth * TwipsPerDot;
}

void PrinterObject::Print(const QString &text, bool endsLine)
{
    if (!text.isEmpty())
        m_device->Draw(PageText{Margin + CurrentX, Margin + CurrentY, text, Font});
    if (endsLine) {
        CurrentX = 0;
        CurrentY += TextHeight();
    } else {
        CurrentX += TextWidth(text);
    }
}

void PrinterObject::Line(double x1, double y1, double x2, double y2)
{
    m_device->Draw(PageLine{Margin + x1, Margin + y1, Margin + x2, Margin + y2, PenWidth()});
}

void PrinterObject::Rectangle(double x1, double y1, double x2, double y2)
{
    Line(x1, y1, x2, y1);
    Line(x2, y1, x2, y2);
    Line(x2, y2, x1, y2);
    Line(x1, y2, x1, y1);
}

void PrinterObject::NewPage()
{
    Demand(m_device->EndPage() > 0 && m_device->StartPage() > 0);
    CurrentX = CurrentY = 0;
}

void PrinterObject::EndDoc()
{
    Demand(m_device->EndPage() > 0 && m_device->EndDocument() > 0);
}

Hourglass::Hourglass(Form &form) : m_form(form), m_former(form.MousePointer())
{
    form.SetMousePointer(MousePointer::Hourglass);
}

Hourglass::~Hourglass()
{
    m_form.SetMousePointer(m_former);
}

void PrintForm(Form &form)
{
    const Hourglass hourglass(form);
    const auto device = DefaultDevice({});
    const auto source = host().Printers().SourceOfClient(form);
    Bitmap bitmap{.Width = source->Width(),
                  .Height = source->Height(),
                  .Planes = source->Planes(),
                  .BitsPerPixel = source->BitsPerPixel(),
                  .Bits = {}};
    bitmap.Bits =
        host().Printers().Allocate(BytesOfBitmap(bitmap.BitsPerPixel, bitmap.Width, bitmap.Height));
    Demand(bitmap.Bits && source->ReadRows(bitmap) > 0);
    const double width = device->Capability(DeviceCapability::HorzSize) * TwipsPerMillimetre;
    const double height = device->Capability(DeviceCapability::VertSize) * TwipsPerMillimetre;
    Demand(width > 0 && height > 0);
    const double fit = std::min({1.0, width / form.ScaleWidth(), height / form.ScaleHeight()});
    const DeviceRectangle place{0, 0,
                                RoundToLong(form.ScaleWidth() * fit / width *
                                            device->Capability(DeviceCapability::HorzRes)),
                                RoundToLong(form.ScaleHeight() * fit / height *
                                            device->Capability(DeviceCapability::VertRes))};
    Demand(device->StartDocument(form.Caption()) > 0 && device->StartPage() > 0 &&
           device->StretchBitmap(place, bitmap) > 0 && device->EndPage() > 0 &&
           device->EndDocument() > 0);
}

} // namespace platform
