#include "platform/printing/machine_printing.h"

#include "platform/controls/form.h"
#include "platform/printing/machine_device.h"
#include "platform/printing/properties_dialog.h"

#include <QPageSize>

namespace platform {

using std::chrono::milliseconds;

namespace {

constexpr milliseconds OneOpening(2000);
constexpr milliseconds OneSitting(60000);
constexpr milliseconds Ever = milliseconds::max();

DeviceMode Judged(const QString &name, const PrinterPapers &papers, const DeviceMode &in)
{
    DeviceMode out = in;
    out.DeviceName = name;
    if (out.Orientation != 2)
        out.Orientation = 1;
    if (out.Copies < 1)
        out.Copies = 1;
    out.Paper = PaperFor(papers, in).Size.key();
    return out;
}

} // namespace

const PrinterList &MachinePrinting::List(milliseconds oldest)
{
    if (m_listed && Clock::now() - *m_listed < oldest)
        return m_list;
    const auto list = AskPrinterList();
    m_list = list.value_or(PrinterList());
    m_listed.reset();
    if (list)
        m_listed = Clock::now();
    return m_list;
}

const PrinterPapers *MachinePrinting::Papers(const QString &name, milliseconds oldest)
{
    const auto known = m_papers.constFind(name);
    if (known != m_papers.constEnd() && (oldest == Ever || Clock::now() - known->Asked < oldest))
        return &known->Papers;
    if (const auto papers = AskPrinterPapers(name))
        return &m_papers.insert(name, {*papers, Clock::now()})->Papers;
    // The former ones are better than none: paper seldom changes.
    return known != m_papers.constEnd() ? &known->Papers : nullptr;
}

QStringList MachinePrinting::Printers()
{
    return List(OneOpening).Names;
}

QString MachinePrinting::DefaultPrinter()
{
    return List(milliseconds(0)).Default;
}

uint64_t MachinePrinting::OpenPrinter(const QString &name)
{
    return List(OneOpening).Names.contains(name) ? ++m_lastPrinter : 0;
}

void MachinePrinting::ClosePrinter(uint64_t) {}

int MachinePrinting::JudgeMode(uint64_t, const QString &name, const DeviceMode &in, DeviceMode &out)
{
    const PrinterPapers *papers = Papers(name, OneSitting);
    if (papers == nullptr)
        return -1;
    out = Judged(name, *papers, in);
    return 1;
}

int MachinePrinting::AskMode(Form &owner, uint64_t, const QString &name, const DeviceMode &in,
                             DeviceMode &out)
{
    const PrinterPapers *papers = Papers(name, OneSitting);
    if (papers == nullptr)
        return -1;
    DeviceMode mode = Judged(name, *papers, in);
    QList<QPageSize> sizes;
    for (const PrinterPaper &paper : papers->All)
        sizes << paper.Size;
    if (!AskPrinterProperties(owner, sizes, mode))
        return 2;
    out = mode;
    return 1;
}

std::unique_ptr<PrintDevice> MachinePrinting::CreateDevice(const QString &name,
                                                           const DeviceMode &mode)
{
    const PrinterPapers *papers = Papers(name, Ever);
    return papers == nullptr ? nullptr : MakeMachineDevice(name, *papers, mode);
}

} // namespace platform
