#include "core/sounds.h"

#include "core/profile.h"
#include "platform/base/errors.h"
#include "platform/files/files.h"
#include "platform/host/chance.h"

using namespace platform;

namespace {

void Suona(const QString &cartella)
{
    if (!SuoniAttivi)
        return;
    const QString percorso = AppPath() + cartella;
    // Listed anew at each call, so files may be added while the program runs. Only the count is
    // used: a file with another name is never played, and still counts.
    int quanti = 0;
    Skipping([&] {
        quanti = static_cast<int>(
            DirList(percorso + QStringLiteral("*.wav"), LookUp::FilesAndFolders).size());
    });
    const int numero = 1 + Draw(quanti);
    host().PlaySound(NativePath(percorso + QString::number(numero) + QStringLiteral(".wav")));
}

} // namespace

void SuonoEsatto()
{
    Suona(QStringLiteral("\\suoni\\si\\"));
}

void SuonoErrato()
{
    Suona(QStringLiteral("\\suoni\\no\\"));
}
