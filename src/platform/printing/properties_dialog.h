// The printer's own dialog: paper, orientation and copies.
#pragma once

#include "platform/host/printing.h"

#include <QList>

class QPageSize;

namespace platform {

// False when cancelled, and `mode` stays as it was.
bool AskPrinterProperties(Form &owner, const QList<QPageSize> &papers, DeviceMode &mode);

} // namespace platform
