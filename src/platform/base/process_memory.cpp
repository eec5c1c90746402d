#include "platform/base/process_memory.h"

#include <cstdlib> // tells whose C library it is

#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace platform {

void KeepLargeBlocksApart()
{
#ifdef __GLIBC__
    // Said once, the bound stays: the library would raise it to the largest picture that went.
    constexpr int Large = 64 * 1024; // bytes
    mallopt(M_MMAP_THRESHOLD, Large);
#endif
}

void GiveMemoryBack()
{
#ifdef __GLIBC__
    malloc_trim(0);
#endif
}

} // namespace platform
