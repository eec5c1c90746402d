#include "support/documents.h"

#include "platform/base/errors.h"
#include "platform/files/files.h"
#include "platform/host/host.h"

using namespace platform;

void ApriDocumento(const QString &percorso)
{
    Skipping([&] { host().OpenDocument(NativePath(percorso)); });
}
