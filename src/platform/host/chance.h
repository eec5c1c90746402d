// The one generator of the program, behind the host.
#pragma once

#include "platform/host/host.h"

namespace platform {

// Int(r * count): 0 to count - 1 with equal chance.
inline int Draw(int count)
{
    return host().DrawBelow(count);
}

} // namespace platform
