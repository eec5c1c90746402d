// A printer of the machine as a device: what its sheet is like, and documents for it. Nothing is
// asked and nothing waits until a document has ended, which is then handed over.
#pragma once

#include "platform/host/printing.h"
#include "platform/printing/spooler.h"

namespace platform {

// The paper of a record, or the printer's own when it does not know that one.
const PrinterPaper &PaperFor(const PrinterPapers &papers, const DeviceMode &mode);

std::unique_ptr<PrintDevice> MakeMachineDevice(const QString &name, const PrinterPapers &papers,
                                               const DeviceMode &mode);

} // namespace platform
