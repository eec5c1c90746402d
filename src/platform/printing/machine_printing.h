// The printers of the machine.
#pragma once

#include "platform/printing/printing.h"

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
    uint64_t m_lastPrinter = 0;
};

} // namespace platform
