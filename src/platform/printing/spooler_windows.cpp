// The printing system of Windows: the toolkit paints with the driver of the printer.
#include "platform/printing/spooler.h"

#include <QtGlobal>

#ifdef Q_OS_WIN

#include <QPageLayout>
#include <QPrinter>
#include <QPrinterInfo>

namespace platform {

namespace {

class DriverDocument : public PrinterDocument {
public:
    explicit DriverDocument(const DocumentOrder &order) : m_printer(QPrinter::HighResolution)
    {
        m_printer.setPrinterName(order.Printer);
        m_printer.setDocName(order.Title);
        m_printer.setResolution(DotsPerInch);
        m_printer.setFullPage(true);
        QPageLayout layout(order.Paper.Size,
                           order.Across ? QPageLayout::Landscape : QPageLayout::Portrait, {});
        layout.setMode(QPageLayout::FullPageMode);
        m_printer.setPageLayout(layout);
    }

    QPagedPaintDevice &Pages() override { return m_printer; }
    void TakeBack() override { m_printer.abort(); }
    bool HandOver() override
    {
        return m_printer.printerState() != QPrinter::Error &&
               m_printer.printerState() != QPrinter::Aborted;
    }

private:
    QPrinter m_printer;
};

QMarginsF MarginsOf(QPrinter &printer, const QPageSize &size)
{
    printer.setPageSize(size);
    QPageLayout layout = printer.pageLayout();
    layout.setUnits(QPageLayout::Point);
    return layout.minimumMargins();
}

} // namespace

std::optional<PrinterList> AskPrinterList()
{
    return PrinterList{QPrinterInfo::availablePrinterNames(), QPrinterInfo::defaultPrinterName()};
}

std::optional<PrinterPapers> AskPrinterPapers(const QString &name)
{
    const QPrinterInfo info = QPrinterInfo::printerInfo(name);
    if (info.isNull())
        return {};
    QPrinter printer(info, QPrinter::HighResolution);
    const QPageSize own = info.defaultPageSize();
    QStringList known;
    PrinterPapers papers;
    const QList<QPageSize> sizes = info.supportedPageSizes();
    for (const QPageSize &size : sizes) {
        if (!size.isValid() || known.contains(size.key()))
            continue;
        known << size.key();
        if (size.key() == own.key())
            papers.Own = static_cast<int>(papers.All.size());
        papers.All << PrinterPaper{size, {}, MarginsOf(printer, size)};
    }
    if (papers.All.isEmpty())
        papers.All << PrinterPaper{own.isValid() ? own : QPageSize(QPageSize::A4), {}, {}};
    return papers;
}

std::unique_ptr<PrinterDocument> BeginDocument(const DocumentOrder &order)
{
    return std::make_unique<DriverDocument>(order);
}

} // namespace platform

#endif
