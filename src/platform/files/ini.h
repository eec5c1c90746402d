// Initialisation files: sections in square brackets, lines of a key, "=" and a value.
#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>

#include <memory>
#include <optional>

namespace platform {

// One state of a file on disk: its bytes, and what they say by sections and keys.
class IniFile {
public:
    explicit IniFile(QByteArray content) : m_content(std::move(content)) {}

    const QByteArray &Content() const { return m_content; }

    // The value of a key, empty when there is none. Sections and keys without regard to case, the
    // first match wins, blanks round the value and one pair of double quotes taken off, cut to 511
    // characters. Lines may end in LF alone, a byte order mark is skipped.
    QString Value(const QString &section, const QString &key) const;

private:
    QByteArray m_content;
    // By section, a line feed and key, in small letters; made at the first question.
    mutable std::optional<QHash<QString, QString>> m_values;
};

// The file as it lies on disk now; errors are those of `ReadFile`. It is kept, and read anew when
// it changed.
std::shared_ptr<const IniFile> OpenIni(const QString &path);

// One value of it.
QString ReadIni(const QString &path, const QString &section, const QString &key);

// Sets one key, keeps every other line, makes the file or the section when missing. A value that
// would lose blanks or quotes at its ends is put in quotes.
// False when it could not be written; nothing is lost then.
bool WriteIni(const QString &path, const QString &section, const QString &key,
              const QString &value);

} // namespace platform
