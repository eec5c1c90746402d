#include "platform/printing/machine_device.h"

#include "platform/printing/deadline.h"
#include "platform/printing/printer_font.h"

#include <QFont>
#include <QFontMetricsF>
#include <QImage>
#include <QLibrary>
#include <QMarginsF>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPen>
#include <QPrinter>
#include <QPrinterInfo>

#include <atomic>
#include <cmath>
#include <mutex>
#include <utility>
#include <vector>

namespace platform {

namespace {

constexpr double MillimetresPerInch = 25.4;
constexpr double PointsPerInch = 72;
constexpr double TwipsPerInch = 1440;

// The printable part of a sheet.
struct Sheet {
    double Left = 0; // from the paper's corner, device pixels
    double Top = 0;
    double PixelsPerInch = 0;
    int HorzSize = 0; // millimetres
    int VertSize = 0;
    int HorzRes = 0; // device pixels
    int VertRes = 0;
};

Sheet SheetOf(const QPrinter &printer)
{
    QPageLayout layout = printer.pageLayout();
    const bool across = layout.orientation() == QPageLayout::Landscape;
    layout.setUnits(QPageLayout::Point);
    QMarginsF margins = layout.minimumMargins();
    // The toolkit keeps them as on the upright sheet, which is turned to the left for printing.
    if (across)
        margins = {margins.bottom(), margins.left(), margins.top(), margins.right()};
    const QSizeF paper = layout.fullRect().size();
    const double width = paper.width() - margins.left() - margins.right();
    const double height = paper.height() - margins.top() - margins.bottom();
    const double pixels = printer.resolution() / PointsPerInch;
    const double millimetres = MillimetresPerInch / PointsPerInch;
    Sheet sheet;
    sheet.PixelsPerInch = printer.resolution();
    sheet.Left = margins.left() * pixels;
    sheet.Top = margins.top() * pixels;
    sheet.HorzRes = static_cast<int>(std::lround(width * pixels));
    sheet.VertRes = static_cast<int>(std::lround(height * pixels));
    sheet.HorzSize = static_cast<int>(std::lround(width * millimetres));
    sheet.VertSize = static_cast<int>(std::lround(height * millimetres));
    return sheet;
}

// What the printing library says of the last request of this thread: the toolkit keeps it to
// itself, so a document that was refused would look like one that was taken.
bool LastRequestFailed()
{
    static const auto lastError =
        reinterpret_cast<int (*)()>(QLibrary::resolve(QStringLiteral("cups"), 2, "cupsLastError"));
    constexpr int LastGoodStatus = 0x06; // done, with remarks
    return lastError != nullptr && lastError() > LastGoodStatus;
}

// Printer and painter belong together; both go in the thread that holds them last.
struct Document {
    std::shared_ptr<QPrinter> Printer;
    std::unique_ptr<QPainter> Painter = std::make_unique<QPainter>();
    std::atomic<bool> Abandoned = false;
    bool Ended = false;

    Document() = default;
    ~Document()
    {
        if (!Ended && Painter->isActive())
            GiveUp();
    }
    Document(const Document &) = delete;
    Document &operator=(const Document &) = delete;

private:
    // The toolkit sends whatever was begun, and waits for it, as soon as its painter goes. What was
    // given up, which is rare, is kept until the process ends.
    void GiveUp()
    {
        static std::mutex mutex;
        static auto *kept =
            new std::vector<std::pair<std::unique_ptr<QPainter>, std::shared_ptr<QPrinter>>>;
        const std::lock_guard lock(mutex);
        kept->emplace_back(std::move(Painter), Printer);
    }
};

class MachineDevice : public PrintDevice {
public:
    MachineDevice(QString name, DeviceMode mode, const Sheet &sheet)
        : m_name(std::move(name)), m_mode(std::move(mode)), m_sheet(sheet)
    {
    }
    ~MachineDevice() override
    {
        if (m_document)
            m_document->Abandoned = true;
    }
    MachineDevice(const MachineDevice &) = delete;
    MachineDevice &operator=(const MachineDevice &) = delete;

    int Capability(DeviceCapability which) const override
    {
        switch (which) {
        case DeviceCapability::HorzSize:
            return m_sheet.HorzSize;
        case DeviceCapability::VertSize:
            return m_sheet.VertSize;
        case DeviceCapability::HorzRes:
            return m_sheet.HorzRes;
        case DeviceCapability::VertRes:
            return m_sheet.VertRes;
        }
        return 0;
    }

    int StartDocument(const QString &title) override
    {
        const auto begun = AskWithDeadline<std::shared_ptr<Document>>(
            [name = m_name, mode = m_mode, title]() -> std::shared_ptr<Document> {
                auto document = std::make_shared<Document>();
                document->Printer = SetUpPrinter(name, mode);
                if (!document->Printer)
                    return {};
                document->Printer->setDocName(title);
                if (!document->Painter->begin(document->Printer.get()))
                    return {};
                return document;
            });
        m_document = begun.value_or(nullptr);
        m_pages = 0;
        return m_document ? 1 : -1;
    }

    int StartPage() override
    {
        if (!m_document || (m_pages++ > 0 && !m_document->Printer->newPage()))
            return 0;
        return 1;
    }

    int StretchBitmap(const DeviceRectangle &place, const Bitmap &bitmap) override
    {
        if (!m_document || !bitmap.Bits ||
            bitmap.Bits->size() != BytesOfBitmap(24, bitmap.Width, bitmap.Height))
            return 0;
        const QImage image(reinterpret_cast<const uchar *>(bitmap.Bits->constData()), bitmap.Width,
                           bitmap.Height, QImage::Format_BGR888);
        QPainter &painter = *m_document->Painter;
        painter.resetTransform();
        painter.drawImage(
            QRectF(m_sheet.Left + place.X, m_sheet.Top + place.Y, place.Width, place.Height), image,
            QRectF(image.rect()));
        return bitmap.Height;
    }

    int EndPage() override { return m_document ? 1 : 0; }

    int EndDocument() override
    {
        if (!m_document)
            return 0;
        const auto sent = AskWithDeadline<bool>([document = m_document, name = m_name] {
            if (!QPrinterInfo::availablePrinterNames().contains(name) || document->Abandoned)
                return false;
            document->Ended = true;
            const bool ended = document->Painter->end();
            return ended && !LastRequestFailed();
        });
        if (!sent)
            m_document->Abandoned = true;
        m_document.reset();
        return sent.value_or(false) ? 1 : 0;
    }

    void Draw(const PageText &text) override
    {
        if (!m_document)
            return;
        QPainter &painter = *m_document->Painter;
        InTwips(painter);
        painter.setFont(FontInTwips(text.Font));
        painter.drawText(QPointF(text.X, text.Y + QFontMetricsF(painter.font()).ascent()),
                         text.Text);
    }

    void Draw(const PageLine &line) override
    {
        if (!m_document)
            return;
        QPainter &painter = *m_document->Painter;
        InTwips(painter);
        painter.setPen(QPen(Qt::black, line.Pen, Qt::SolidLine, Qt::SquareCap));
        painter.drawLine(QPointF(line.X1, line.Y1), QPointF(line.X2, line.Y2));
    }

private:
    void InTwips(QPainter &painter) const
    {
        painter.resetTransform();
        painter.translate(m_sheet.Left, m_sheet.Top);
        painter.scale(m_sheet.PixelsPerInch / TwipsPerInch, m_sheet.PixelsPerInch / TwipsPerInch);
    }

    QString m_name;
    DeviceMode m_mode;
    Sheet m_sheet;
    std::shared_ptr<Document> m_document;
    int m_pages = 0;
};

} // namespace

std::shared_ptr<QPrinter> SetUpPrinter(const QString &name, const DeviceMode &mode)
{
    // The toolkit turns to a file on disk for a printer that is not there.
    if (!QPrinterInfo::availablePrinterNames().contains(name))
        return {};
    const QPrinterInfo info = QPrinterInfo::printerInfo(name);
    auto printer = std::make_shared<QPrinter>(info, QPrinter::HighResolution);
    if (printer->printerName() != name || printer->outputFormat() != QPrinter::NativeFormat)
        return {};
    for (const QPageSize &paper : info.supportedPageSizes())
        if (paper.key() == mode.Paper)
            printer->setPageSize(paper);
    printer->setPageOrientation(mode.Orientation == 2 ? QPageLayout::Landscape
                                                      : QPageLayout::Portrait);
    printer->setFullPage(true);
    return printer;
}

std::unique_ptr<PrintDevice> MakeMachineDevice(const QString &name, const DeviceMode &mode)
{
    const auto sheet =
        AskWithDeadline<std::optional<Sheet>>([name, mode]() -> std::optional<Sheet> {
            const auto printer = SetUpPrinter(name, mode);
            return printer ? std::optional<Sheet>(SheetOf(*printer)) : std::nullopt;
        });
    if (!sheet || !*sheet)
        return {};
    return std::make_unique<MachineDevice>(name, mode, **sheet);
}

} // namespace platform
