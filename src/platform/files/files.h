// Files and folders as the program names them: literal paths with backslashes, "C:\" for the drive
// that all users of the machine share. Below it names are found without regard to case.
#pragma once

#include "platform/files/place.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <memory>

namespace platform {

// Directory look-up with one pattern in the last part ("*" and "?"), sorted by name without regard
// to case. Plain names, no folder part; "." and ".." never come. Special files are left out,
// on the drive links too. "*.*" fits every name; a separator at the end stands for all names below.
// A folder that is not there gives an empty list; one that may not be read raises 70, a link 75.
enum class LookUp { FilesOnly, FilesAndFolders };
QStringList DirList(const QString &pattern, LookUp kind);

bool FileExists(const QString &path);    // a plain file
bool FolderExists(const QString &path);  // false on any error too
int64_t FileLength(const QString &path); // bytes; error 53 when it is not there

// Makes one folder, whose parent must exist; it takes the rights and the group of the parent.
// Errors 70, 75, 76, 58 as the platform finds them, with the path as detail.
void CreateFolder(const QString &path);
// Replaces the target's content. Errors 53, 61, 70, 75, 76.
void CopyFile(const QString &from, const QString &to);

// Whole content; error 53 when it is not there, 70 when it may not be read, 75 for what is no
// plain file.
QByteArray ReadFile(const QString &path);

// Code page 1252. A letter outside it becomes "?"; the five unused bytes come back as themselves.
QByteArray ToCodePage(const QString &text);
QString FromCodePage(const QByteArray &bytes);

// Writes a text file line by line with CR LF, in code page 1252, replacing what was there: an
// existing file is opened and cut, never replaced by another; a new one is made exclusively and
// takes the rights of its folder (without the execute bits).
class TextWriter {
public:
    explicit TextWriter(const QString &path); // opens; errors 52, 70, 75, 76
    ~TextWriter();                            // closes, errors skipped
    TextWriter(const TextWriter &) = delete;
    TextWriter &operator=(const TextWriter &) = delete;

    void PrintText(const QString &line);
    // A number as the print statement writes it: a blank ahead when it is not negative, one
    // behind, a point, up to 15 significant digits.
    void PrintNumber(double value);
    void Close(); // error 61 when the disk is full; the old content stays, a new file goes again

private:
    struct State;
    std::unique_ptr<State> m_state;
};

// Reads fields with the rules of a comma-separated record: leading blanks skipped, a field ends at
// a comma or a line end, one that starts with a double quote runs to the next one and what stands
// between that and the comma or line end is skipped. Lines end at CR LF, LF or CR alone.
class RecordReader {
public:
    explicit RecordReader(const QString &path); // errors 52, 53, 70, 75
    explicit RecordReader(const QByteArray &content);
    ~RecordReader();
    RecordReader(const RecordReader &) = delete;
    RecordReader &operator=(const RecordReader &) = delete;

    bool AtEnd() const;
    QString Text();    // error 62 past the end, also inside an unclosed quote
    double Number();   // error 13 for what is no number, also empty
    int16_t Integer(); // rounded, halves to even; error 6 outside 16 bits
    QString Line();    // the rest of the line as it stands, without its end

private:
    struct State;
    std::unique_ptr<State> m_state;
};

} // namespace platform
