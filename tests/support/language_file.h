// A language file as it lies on disk, taken apart by its bytes and not by the program's reader:
// both ways in which the program reads must find the same in it.
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

struct LanguageEntry {
    QByteArray Section;
    QByteArray Key;
    QByteArray Value; // in code page 1252

    // "FormMenu: Command1(3).Caption", for the message of a test.
    QByteArray Name() const { return Section + ": " + Key; }
    // Of a window's section: the control, "Command1(3)", or the window's own name; and its
    // property.
    QString Control() const { return QString::fromLatin1(Key.left(Key.lastIndexOf('.'))); }
    QString Property() const { return QString::fromLatin1(Key.mid(Key.lastIndexOf('.') + 1)); }
};

struct LanguageFile {
    QByteArray Content;
    QList<QByteArray> Sections;
    QList<LanguageEntry> Entries;
    QList<QByteArray> Strange; // lines of no known form

    QByteArray Text(const QByteArray &section, const QByteArray &key) const;
    QList<LanguageEntry> EntriesOf(const QByteArray &section) const;
    // All but the numbered texts and the spoken names.
    QList<QByteArray> Windows() const;
    QList<LanguageEntry> EntriesOfWindows() const;
};

// The languages that are shipped, "italiano.lng" and others.
QStringList LanguageNames();
LanguageFile ReadLanguageFile(const QString &name);

// One row for each, in the column "name".
void RowsOfLanguages();
