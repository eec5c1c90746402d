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

#include <optional>

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

struct PrinterDocument {
    QString Printer;
    QString Title;
    QByteArray Media;
    bool Across = false;
    QByteArray Pdf;
};

// Nothing when the printing system is not there or is silent.
std::optional<PrinterList> AskPrinterList();
std::optional<PrinterPapers> AskPrinterPapers(const QString &printer);

// Waits until the document has been taken, 30 s at most. False only when nothing will come out:
// what was not taken by then is cancelled.
bool HandOver(const PrinterDocument &document);

} // namespace platform
