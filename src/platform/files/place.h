// Where a path of the program leads: the folder that is trusted and the names below it.
#pragma once

#include <QString>
#include <QStringList>

namespace platform {

// The native path of a literal. Three kinds are known: one on drive C:, one that begins with the
// application folder (`AppPath`) and goes on with backslashes, and a native one that a person
// chose, which stays as it is (below the drive its names and links are judged all the same). Names
// on the drive and in the application folder are matched to what is there without regard to case,
// part by part: the exact name first, else the first in order; what is not there keeps the spelling
// of the literal. Error 52 for a name with / : * ? " < > |, control characters, a trailing dot, or
// more than 255 bytes.
QString NativePath(const QString &path);

// The application folder without a separator at its end, ready for a literal such as "\\swf".
QString AppPath();

// `Root` belongs to the machine and may be reached through links. On the drive, which every user of
// the machine can write to, none of the parts may be a link.
struct FilePlace {
    QString Root;      // native, ends in a slash
    QStringList Parts; // as they are spelled on disk; none: the root itself
    bool OnDrive = false;

    QString Native() const;
    QString Name() const { return Parts.isEmpty() ? QString() : Parts.last(); }
    FilePlace Folder() const;
};

// The place of a path for reading and writing. Error 52 for a refused name, 75 for a link on the
// way below the drive. A link in the application folder that points below the drive gives the place
// on the drive, so that nothing behind it is followed blindly.
FilePlace Locate(const QString &path);

// The same for a path with a pattern in its last part; the pattern is the last part as it stands,
// "*" behind a separator at the end.
FilePlace LocatePattern(const QString &path);

// Whether a name fits a pattern of "*" and "?", without regard to case. "*.*" fits every name.
bool Fits(const QString &name, const QString &pattern);

// Names without regard to case; of two that differ in nothing else the capital comes first.
bool ComesBefore(const QString &left, const QString &right);

} // namespace platform
