// The printing system of the machine: which printers it has, what they are like, and documents
// handed over to it. Each answer has a time of its own, so that all of it may take long while
// answers come, and a printing system that is silent keeps nobody waiting.
#pragma once

#include <QByteArray>
#include <QList>
#include <QMarginsF>
#include <QPageSize>
#include <QString>
#include <QStringList>

#include <memory>
#include <optional>

class QPagedPaintDevice;

namespace platform {

struct PrinterList {
    QStringList Names;
    QString Default; // empty when there is none
};

struct PrinterPaper {
    QPageSize Size;
    QByteArray Media;  // the printing system's name of it
    QMarginsF Margins; // that cannot be printed on, of the upright sheet, points
};

struct PrinterPapers {
    QList<PrinterPaper> All; // each size once
    int Own = 0;             // the one that the printer takes by itself
};

struct DocumentOrder {
    QString Printer;
    QString Title;
    PrinterPaper Paper;
    bool Across = false;
};

// A document on its way to a printer. Its pages are painted over the whole sheet, in `DotsPerInch`.
class PrinterDocument {
public:
    static constexpr int DotsPerInch = 1200;

    virtual ~PrinterDocument() = default;
    // Nothing may paint any more when the document goes.
    virtual QPagedPaintDevice &Pages() = 0;
    // Nothing of it will come out. While it is painted, before the painter ends.
    virtual void TakeBack() = 0;
    // Once, when the painter has ended. Waits until the document has been taken, 30 s at most.
    // False only when nothing will come out: what was not taken by then is cancelled.
    virtual bool HandOver() = 0;
};

// Nothing when the printing system is not there or is silent.
std::optional<PrinterList> AskPrinterList();
std::optional<PrinterPapers> AskPrinterPapers(const QString &printer);

std::unique_ptr<PrinterDocument> BeginDocument(const DocumentOrder &order);

} // namespace platform
