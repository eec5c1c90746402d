// The calls of the operating system behind the files of the program: what may be opened, what
// rights a new file takes, and how content is replaced without losing what was there.
#pragma once

#include "platform/files/place.h"

#include <QByteArray>
#include <QStringList>

#include <cstdint>
#include <memory>

namespace platform {

// What stands at a place, as far as this program may touch it. A link on the drive is `Other`.
enum class Nature { Missing, File, Folder, Other };

// Tells one state of a file from another.
struct Stamp {
    uint64_t Device = 0;
    uint64_t Inode = 0;
    int64_t Size = -1;    // bytes
    int64_t Modified = 0; // nanoseconds since 1970
    int64_t Changed = 0;  // of content or rights, likewise
    // Two changes in the same tick of the file system's clock leave the same stamp, so a file that
    // changed just before it was looked at cannot be told from its next state. Length and time of
    // change alone would not do: a copy can bring both along.
    bool Settled = false;

    bool SameAs(const Stamp &other) const
    {
        return Device == other.Device && Inode == other.Inode && Size == other.Size &&
               Modified == other.Modified && Changed == other.Changed;
    }
};

// None raises an error; what cannot be examined is `Missing`.
Nature NatureOf(const FilePlace &place);

// Errors 53, 70, 75.
Stamp StampOf(const FilePlace &place);
QByteArray ReadAll(const FilePlace &place);

// Plain names of the files, and of the folders too when asked for; on the drive no links. Unsorted.
// A folder that is not there gives none; errors 70 and 75.
QStringList NamesIn(const FilePlace &folder, bool folders);

// Errors 58, 61, 70, 75, 76. Below the drive the folder takes rights and group of its parent.
void MakeFolder(const FilePlace &place);

// A file opened for new content. What exists is opened without the create flag and never replaced
// by another file, because a sticky folder keeps other users' files in place; what is new is made
// exclusively and below the drive takes rights and group of its folder, without the execute bits.
class OutputFile {
public:
    explicit OutputFile(const FilePlace &place); // errors 52, 61, 70, 75, 76
    ~OutputFile();
    OutputFile(const OutputFile &) = delete;
    OutputFile &operator=(const OutputFile &) = delete;

    // Writes the whole content and closes; once. What goes beyond the old length is written first,
    // so a full disk (error 61) is met while the old content still stands, and it stays. A file
    // that was new goes away again then. Below the drive one writes at a time, and nobody reads
    // meanwhile; who takes longer than a tenth of a second is not waited for.
    void Replace(const QByteArray &content);

private:
    struct State;
    std::unique_ptr<State> m_state;
};

} // namespace platform
