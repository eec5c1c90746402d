#include "support/documents.h"

#include "platform/errors.h"
#include "platform/files.h"
#include "platform/host.h"

using namespace platform;

void ApriDocumento(const QString &percorso)
{
    Skipping([&] { host().OpenDocument(NativePath(percorso)); });
}
