// A printer of the machine as a device: what its sheet is like, and documents sent to it.
#pragma once

#include "platform/printing/printing.h"

class QPrinter;

namespace platform {

// Nothing when the printer is not there or does not answer.
std::unique_ptr<PrintDevice> MakeMachineDevice(const QString &name, const DeviceMode &mode);

// Only in the thread that asks the printing system: a printer set up for a record, nothing when it
// is not there.
std::shared_ptr<QPrinter> SetUpPrinter(const QString &name, const DeviceMode &mode);

} // namespace platform
