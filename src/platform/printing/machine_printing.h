// The printers of the machine.
#pragma once

#include "platform/host/printing.h"
#include "platform/printing/spooler.h"

#include <QMap>

#include <chrono>

namespace platform {

class MachinePrinting : public Printing {
public:
    QStringList Printers() override;
    QString DefaultPrinter() override;
    uint64_t OpenPrinter(const QString &name) override;
    void ClosePrinter(uint64_t printer) override;
    int JudgeMode(uint64_t printer, const QString &name, const DeviceMode &in,
                  DeviceMode &out) override;
    int AskMode(Form &owner, uint64_t printer, const QString &name, const DeviceMode &in,
                DeviceMode &out) override;
    std::unique_ptr<PrintDevice> CreateDevice(const QString &name, const DeviceMode &mode) override;
    std::unique_ptr<BitmapSource> SourceOfWindow(Form &form) override;
    std::unique_ptr<BitmapSource> SourceOfClient(Form &form) override;
    std::unique_ptr<BitmapSource> SourceOfPicture(PictureBox &box) override;
    std::shared_ptr<QByteArray> Allocate(qsizetype bytes) override;

private:
    using Clock = std::chrono::steady_clock;
    struct KnownPapers {
        PrinterPapers Papers;
        Clock::time_point Asked;
    };

    // Answers are kept, since each may come late: a list for one opening of the dialog, papers for
    // longer, and for a device that is about to print always.
    const PrinterList &List(std::chrono::milliseconds oldest);
    const PrinterPapers *Papers(const QString &name, std::chrono::milliseconds oldest);

    uint64_t m_lastPrinter = 0;
    PrinterList m_list;
    std::optional<Clock::time_point> m_listed;
    QMap<QString, KnownPapers> m_papers;
};

} // namespace platform
