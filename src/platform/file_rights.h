// Making and replacing files so that they take the rights of the folder they stand in.
#pragma once

#include <QByteArray>
#include <QString>

namespace platform {

// Both take native paths. Errors 61, 70, 75, 76 with the path as detail.
void MakeFolderLikeParent(const QString &native);

// Replaces the whole content. An existing file is opened without the create flag and never replaced
// by another one (a sticky folder keeps other users' files in place); a new one is made exclusively.
// Links and what is no plain file are refused. The new content is written over the old one and cut
// behind it, so that a disk that is full before the first byte leaves the old content.
void WriteWhole(const QString &native, const QByteArray &content);

// Opens as `WriteWhole` does and closes again, so that a refusal comes before anything is lost.
void ProbeForWriting(const QString &native);

} // namespace platform
