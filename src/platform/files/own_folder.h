// A folder for what a user of the machine keeps while the program runs.
#pragma once

#include <QString>

namespace platform {

// Belongs to this user alone and ends in a slash; empty when there is none. It is the session's
// folder, else the cache in the user's home, else one of the user's own among the temporary files,
// so that two users without a home do not meet.
QString OwnFolder();

} // namespace platform
