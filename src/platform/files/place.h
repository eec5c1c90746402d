// Where a path of the program leads: the folder that is trusted and the names below it.
#pragma once

#include <QString>
#include <QStringList>

namespace platform {

// `Root` belongs to the machine and may be reached through links. On the drive, which every user of
// the machine can write to, none of the parts may be a link.
struct Place {
    QString Root;      // native, ends in a slash
    QStringList Parts; // as they are spelled on disk; none: the root itself
    bool OnDrive = false;

    QString Native() const;
    QString Name() const { return Parts.isEmpty() ? QString() : Parts.last(); }
    Place Folder() const;
};

// The place of a path for reading and writing. Error 52 for a refused name, 75 for a link on the
// way below the drive. A link in the application folder that points below the drive gives the place
// on the drive, so that nothing behind it is followed blindly.
Place Locate(const QString &path);

// The same for a path with a pattern in its last part; the pattern is the last part as it stands,
// "*" behind a separator at the end.
Place LocatePattern(const QString &path);

// Whether a name fits a pattern of "*" and "?", without regard to case. "*.*" fits every name.
bool Fits(const QString &name, const QString &pattern);

// Names without regard to case; of two that differ in nothing else the capital comes first.
bool ComesBefore(const QString &left, const QString &right);

} // namespace platform
