// Initialisation files: sections in square brackets, lines of a key, "=" and a value.
#pragma once

#include <QString>

namespace platform {

// The value of a key, empty when there is none. Sections and keys without regard to case, the
// first match wins, blanks round the value and one pair of double quotes taken off, cut to 511
// characters. Lines may end in LF alone, a byte order mark is skipped. Errors are those of
// `ReadFile`. A parsed file is kept and read anew when it changed on disk.
QString ReadIni(const QString &path, const QString &section, const QString &key);

// Sets one key, keeps every other line, makes the file or the section when missing.
// False when it could not be written; nothing is lost then.
bool WriteIni(const QString &path, const QString &section, const QString &key,
              const QString &value);

} // namespace platform
