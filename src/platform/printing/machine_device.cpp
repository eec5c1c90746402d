#include "platform/printing/machine_device.h"

#include "platform/printing/printer_font.h"

#include <QFont>
#include <QFontMetricsF>
#include <QImage>
#include <QMarginsF>
#include <QPageSize>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QPen>

#include <cmath>
#include <utility>

namespace platform {

namespace {

constexpr double MillimetresPerInch = 25.4;
constexpr double PointsPerInch = 72;
constexpr double TwipsPerInch = 1440;
constexpr int DotsPerInch = PrinterDocument::DotsPerInch;

// The printable part of a sheet.
struct Sheet {
    double Left = 0; // from the paper's corner, device pixels
    double Top = 0;
    int HorzSize = 0; // millimetres
    int VertSize = 0;
    int HorzRes = 0; // device pixels
    int VertRes = 0;
};

Sheet SheetOf(const PrinterPaper &upright, bool across)
{
    QMarginsF margins = upright.Margins;
    QSizeF paper = upright.Size.size(QPageSize::Point);
    // The upright sheet is turned to the left for printing.
    if (across) {
        margins = {margins.bottom(), margins.left(), margins.top(), margins.right()};
        paper.transpose();
    }
    const double width = paper.width() - margins.left() - margins.right();
    const double height = paper.height() - margins.top() - margins.bottom();
    const double pixels = DotsPerInch / PointsPerInch;
    const double millimetres = MillimetresPerInch / PointsPerInch;
    Sheet sheet;
    sheet.Left = margins.left() * pixels;
    sheet.Top = margins.top() * pixels;
    sheet.HorzRes = static_cast<int>(std::lround(width * pixels));
    sheet.VertRes = static_cast<int>(std::lround(height * pixels));
    sheet.HorzSize = static_cast<int>(std::lround(width * millimetres));
    sheet.VertSize = static_cast<int>(std::lround(height * millimetres));
    return sheet;
}

struct Document {
    explicit Document(const DocumentOrder &order) : Sheets(BeginDocument(order)) {}
    ~Document()
    {
        if (Painter.isActive())
            Sheets->TakeBack();
    }
    Document(const Document &) = delete;
    Document &operator=(const Document &) = delete;

    std::unique_ptr<PrinterDocument> Sheets;
    QPainter Painter; // goes before its sheets
};

class MachineDevice : public PrintDevice {
public:
    MachineDevice(QString name, PrinterPaper paper, bool across)
        : m_name(std::move(name)), m_paper(std::move(paper)), m_across(across),
          m_sheet(SheetOf(m_paper, across))
    {
    }

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
        m_document = std::make_unique<Document>(
            DocumentOrder{.Printer = m_name, .Title = title, .Paper = m_paper, .Across = m_across});
        if (!m_document->Painter.begin(&m_document->Sheets->Pages()))
            m_document.reset();
        m_pages = 0;
        return m_document ? 1 : -1;
    }

    int StartPage() override
    {
        if (!m_document || (m_pages++ > 0 && !m_document->Sheets->Pages().newPage()))
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
        QPainter &painter = m_document->Painter;
        painter.resetTransform();
        painter.drawImage(
            QRectF(m_sheet.Left + place.X, m_sheet.Top + place.Y, place.Width, place.Height), image,
            QRectF(image.rect()));
        return bitmap.Height;
    }

    int EndPage() override { return m_document ? 1 : 0; }

    int EndDocument() override
    {
        const auto document = std::move(m_document);
        return document && document->Painter.end() && document->Sheets->HandOver() ? 1 : 0;
    }

    void Draw(const PageText &text) override
    {
        if (!m_document)
            return;
        QPainter &painter = m_document->Painter;
        InTwips(painter);
        painter.setFont(FontInTwips(text.Font));
        painter.drawText(QPointF(text.X, text.Y + QFontMetricsF(painter.font()).ascent()),
                         text.Text);
    }

    void Draw(const PageLine &line) override
    {
        if (!m_document)
            return;
        QPainter &painter = m_document->Painter;
        InTwips(painter);
        painter.setPen(QPen(Qt::black, line.Pen, Qt::SolidLine, Qt::SquareCap));
        painter.drawLine(QPointF(line.X1, line.Y1), QPointF(line.X2, line.Y2));
    }

private:
    void InTwips(QPainter &painter) const
    {
        painter.resetTransform();
        painter.translate(m_sheet.Left, m_sheet.Top);
        painter.scale(DotsPerInch / TwipsPerInch, DotsPerInch / TwipsPerInch);
    }

    QString m_name;
    PrinterPaper m_paper;
    bool m_across;
    Sheet m_sheet;
    std::unique_ptr<Document> m_document;
    int m_pages = 0;
};

} // namespace

const PrinterPaper &PaperFor(const PrinterPapers &papers, const DeviceMode &mode)
{
    for (const PrinterPaper &paper : papers.All)
        if (paper.Size.key() == mode.Paper)
            return paper;
    return papers.All.at(papers.Own);
}

std::unique_ptr<PrintDevice> MakeMachineDevice(const QString &name, const PrinterPapers &papers,
                                               const DeviceMode &mode)
{
    return std::make_unique<MachineDevice>(name, PaperFor(papers, mode), mode.Orientation == 2);
}

} // namespace platform
