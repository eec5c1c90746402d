// Language files of any bytes, looked up by sections and, as large ones are, by lines; and any name
// of a language in the setting.
#include "language/language.h"
#include "platform/files/ini.h"

#include "support/folder_host.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

using namespace platform;

static const QByteArray Mark = "\xEF\xBB\xBF";
// More than a file looked up by sections has; no key begins so.
static const QByteArray Remark = ';' + QByteArray(65000, 'x');

static void LookUp(const QByteArray &content)
{
    const IniFile sections(content);
    const IniFile ahead(Remark + "\r\n" + content);
    const IniFile behind(content + "\r\n" + Remark);
    for (const char *key : {"0001", "FormMenu.Caption", "Tab(1)"}) {
        const QString name = QString::fromLatin1(key);
        const QString value = MLSValore(sections, QStringLiteral("Strings"), name);
        if (value.size() > 511 || value != MLSValore(sections, QStringLiteral("STRINGS"), name))
            std::abort();
        const QString line = MLSValore(behind, QStringLiteral("Strings"), name);
        if (line.size() > content.size())
            std::abort();
        // Wherever the large part stands, the first line of the key wins.
        if (!content.startsWith(Mark) && line != MLSValore(ahead, QStringLiteral("Other"), name))
            std::abort();
    }
}

static void KeepName(const QString &name)
{
    constexpr qsizetype Longest = 100; // letters of a file's name, more or less
    LinguaCorrente = name.left(Longest);
    for (const QChar letter : {QChar('\r'), QChar('\n'), QChar('\0')})
        LinguaCorrente.remove(letter);
    // Half a letter is no name.
    if (!LinguaCorrente.isValidUtf16())
        return;
    const QString kept = LinguaCorrente;
    SalvaLinguaCorrente();
    LinguaCorrente.clear();
    LeggiLinguaCorrente();
    if (LinguaCorrente != kept)
        std::abort();
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static FolderHost host;
    const QByteArray content(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    LookUp(content);
    if (QDir().mkpath(host.Application + QStringLiteral("lngmorlene")))
        KeepName(QString::fromUtf8(content));
    return 0;
}
