// What the process has of the machine's memory, where the C library leaves that to the program.
#pragma once

namespace platform {

// Before anything large is made. Pictures come and go with every window: from among small things
// they would leave gaps that other small things settle in, a little more with each visit.
void KeepLargeBlocksApart();
// What was used and is free now stays with the process else, in pieces.
void GiveMemoryBack();

} // namespace platform
