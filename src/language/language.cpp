#include "language/language.h"

#include "platform/errors.h"
#include "platform/files.h"
#include "platform/ini.h"

#include <QByteArray>

using namespace platform;

QString LinguaCorrente;

namespace {

// Beyond this many bytes a language file is scanned by lines.
constexpr int64_t LimiteIni = 64000;

QString Cartella()
{
    return AppPath() + QStringLiteral("\\lngmorlene\\");
}

QString FileImpostazione()
{
    return Cartella() + QStringLiteral("LangSetting.ini");
}

// A file beyond the limit, kept while it stays as it is on disk: a window asks for hundreds of
// keys.
struct FileGrande {
    QString Percorso;
    FileState Stato;
    QByteArray Contenuto; // without a byte order mark, lines ended by LF alone
};

const QByteArray &ContenutoGrande(const QString &file)
{
    static FileGrande ultimo;
    const FileState stato = StateOfFile(file);
    if (ultimo.Percorso != file || !(ultimo.Stato == stato)) {
        ultimo = {};
        ultimo.Contenuto = ReadFile(file);
        if (ultimo.Contenuto.startsWith("\xEF\xBB\xBF"))
            ultimo.Contenuto.remove(0, 3);
        ultimo.Contenuto.replace("\r\n", "\n").replace('\r', '\n');
        ultimo.Percorso = file;
        ultimo.Stato = stato;
    }
    return ultimo.Contenuto;
}

QString CercaPerRighe(const QByteArray &contenuto, const QString &chiave)
{
    const QByteArray inizio = ToCodePage(chiave);
    qsizetype riga = 0;
    while (riga < contenuto.size()) {
        qsizetype fine = contenuto.indexOf('\n', riga);
        if (fine < 0)
            fine = contenuto.size();
        const QByteArrayView testo(contenuto.constData() + riga, fine - riga);
        if (testo.startsWith(inizio)) {
            // Behind the key and the letter that follows it, without the first and the last letter.
            const qsizetype valore = riga + inizio.size() + 2;
            return fine - valore < 2 ? QString()
                                     : FromCodePage(contenuto.mid(valore, fine - valore - 1));
        }
        riga = fine + 1;
    }
    return {};
}

} // namespace

QString FileLinguaCorrente()
{
    return Cartella() + LinguaCorrente + QStringLiteral(".lng");
}

QString MLSLeggiIni(const QString &file, const QString &sezione, const QString &chiave)
{
    if (FileLength(file) <= LimiteIni)
        return ReadIni(file, sezione, chiave);
    return CercaPerRighe(ContenutoGrande(file), chiave);
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
    Skipping([&] { testo = MLSLeggiIni(FileLinguaCorrente(), QStringLiteral("Strings"), chiave); });
    return testo;
}
