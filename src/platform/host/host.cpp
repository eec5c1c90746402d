#include "platform/host/host.h"

namespace platform {

namespace {
Host *current = nullptr;
}

Host &host()
{
    return *current;
}

void SetHost(Host *host)
{
    current = host;
}

} // namespace platform
