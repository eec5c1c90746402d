// Files for a moment, in the folder that the system keeps for them.
#pragma once

#include <QString>

namespace platform {

// Makes an empty file of this user alone, whose name begins with `prefix`; its native path.
// Error 75 when none can be made.
QString MakeTemporaryFile(const QString &prefix);

// Errors 53 and 75.
void RemoveTemporaryFile(const QString &nativePath);

} // namespace platform
