// Initialisation files of any bytes: look-ups end, and a change is found again and keeps the rest.
#include "platform/files/files.h"
#include "platform/files/ini.h"

#include "support/folder_host.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

using namespace platform;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static FolderHost host;
    const QByteArray content(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    const QString path = QStringLiteral("C:\\a.ini");
    const QString section = QStringLiteral("Language");
    const QString key = QStringLiteral("CurrentLanguage");
    FolderHost::Put(host.Drive + QStringLiteral("a.ini"), content);
    const QString other = ReadIni(path, section, QStringLiteral("k"));
    if (ReadIni(path, section, key).size() > 511 || other.size() > 511)
        std::abort();
    if (!WriteIni(path, section, key, QStringLiteral("value")))
        std::abort();
    if (ReadIni(path, section, key) != QStringLiteral("value") ||
        ReadIni(path, section, QStringLiteral("k")) != other)
        std::abort();
    // A second change of the same kind finds nothing left to change.
    const QByteArray once = ReadFile(path);
    if (!WriteIni(path, section, key, QStringLiteral("value")) || ReadFile(path) != once)
        std::abort();
    return 0;
}
