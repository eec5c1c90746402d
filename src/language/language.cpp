#include "language/language.h"

#include "platform/control.h"
#include "platform/errors.h"
#include "platform/files.h"
#include "platform/ini.h"

#include <QByteArray>

using namespace platform;

QString LinguaCorrente;

namespace {

// Beyond this many bytes a language file is scanned by lines.
constexpr int64_t LimiteIni = 64000;

QString Cartella() { return AppPath() + QStringLiteral("\\lngmorlene\\"); }

QString FileImpostazione() { return Cartella() + QStringLiteral("LangSetting.ini"); }

QString FileLingua() { return Cartella() + LinguaCorrente + QStringLiteral(".lng"); }

QString CercaPerRighe(const QByteArray &contenuto, const QString &chiave)
{
    const QByteArray inizio = ToCodePage(chiave);
    qsizetype riga = 0;
    while (riga < contenuto.size()) {
        qsizetype fine = contenuto.indexOf('\n', riga);
        if (fine < 0)
            fine = contenuto.size();
        QByteArray testo = contenuto.mid(riga, fine - riga);
        if (testo.endsWith('\r'))
            testo.chop(1);
        if (testo.startsWith(inizio)) {
            // Behind the key and the letter that follows it, without the first and the last letter.
            const QByteArray valore = testo.mid(inizio.size() + 1);
            return FromCodePage(valore.mid(1, valore.size() - 2));
        }
        riga = fine + 1;
    }
    return {};
}

} // namespace

QString MLSLeggiIni(const QString &file, const QString &sezione, const QString &chiave)
{
    if (FileLength(file) <= LimiteIni)
        return ReadIni(file, sezione, chiave);
    return CercaPerRighe(ReadFile(file), chiave);
}

void MLSScriviIni(const QString &file, const QString &sezione, const QString &chiave,
                  const QString &valore)
{
    static_cast<void>(WriteIni(file, sezione, chiave, valore));
}

void LeggiLinguaCorrente()
{
    Skipping([] {
        LinguaCorrente = MLSLeggiIni(FileImpostazione(), QStringLiteral("Language"),
                                     QStringLiteral("CurrentLanguage"));
    });
}

void SalvaLinguaCorrente()
{
    MLSScriviIni(FileImpostazione(), QStringLiteral("Language"), QStringLiteral("CurrentLanguage"),
                 LinguaCorrente);
}

QStringList LingueInstallate()
{
    return DirList(Cartella() + QStringLiteral("*.lng"), LookUp::FilesOnly);
}

QString MLSTesto(const QString &chiave)
{
    QString testo;
    if (LinguaCorrente.isEmpty())
        LeggiLinguaCorrente();
    Skipping([&] { testo = MLSLeggiIni(FileLingua(), QStringLiteral("Strings"), chiave); });
    return testo;
}
