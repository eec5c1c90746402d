#include "platform/printing/machine_printing.h"

#include "platform/form.h"
#include "platform/printing/deadline.h"
#include "platform/printing/machine_device.h"
#include "platform/printing/properties_dialog.h"

#include <QPageSize>
#include <QPrinterInfo>

namespace platform {

namespace {

// What a driver's own dialog can ask of a printer.
struct Choices {
    QList<QPageSize> Papers;
    QPageSize OwnPaper;
};

std::optional<Choices> ChoicesOf(const QString &name)
{
    return AskWithDeadline<std::optional<Choices>>([name]() -> std::optional<Choices> {
               if (!QPrinterInfo::availablePrinterNames().contains(name))
                   return {};
               const QPrinterInfo info = QPrinterInfo::printerInfo(name);
               return Choices{info.supportedPageSizes(), info.defaultPageSize()};
           })
        .value_or(std::nullopt);
}

DeviceMode Judged(const QString &name, const Choices &choices, const DeviceMode &in)
{
    DeviceMode out = in;
    out.DeviceName = name;
    if (out.Orientation != 2)
        out.Orientation = 1;
    if (out.Copies < 1)
        out.Copies = 1;
    bool known = false;
    for (const QPageSize &paper : choices.Papers)
        known = known || paper.key() == in.Paper;
    if (!known)
        out.Paper = choices.OwnPaper.key();
    return out;
}

} // namespace

QStringList MachinePrinting::Printers()
{
    return AskWithDeadline<QStringList>([] { return QPrinterInfo::availablePrinterNames(); })
        .value_or(QStringList());
}

QString MachinePrinting::DefaultPrinter()
{
    return AskWithDeadline<QString>([] { return QPrinterInfo::defaultPrinterName(); })
        .value_or(QString());
}

uint64_t MachinePrinting::OpenPrinter(const QString &name)
{
    return Printers().contains(name) ? ++m_lastPrinter : 0;
}

void MachinePrinting::ClosePrinter(uint64_t) {}

int MachinePrinting::JudgeMode(uint64_t, const QString &name, const DeviceMode &in, DeviceMode &out)
{
    const auto choices = ChoicesOf(name);
    if (!choices)
        return -1;
    out = Judged(name, *choices, in);
    return 1;
}

int MachinePrinting::AskMode(Form &owner, uint64_t, const QString &name, const DeviceMode &in,
                             DeviceMode &out)
{
    const auto choices = ChoicesOf(name);
    if (!choices)
        return -1;
    DeviceMode mode = Judged(name, *choices, in);
    if (!AskPrinterProperties(owner, choices->Papers, mode))
        return 2;
    out = mode;
    return 1;
}

std::unique_ptr<PrintDevice> MachinePrinting::CreateDevice(const QString &name,
                                                           const DeviceMode &mode)
{
    return MakeMachineDevice(name, mode);
}

} // namespace platform
