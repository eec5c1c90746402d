#include "language/language.h"

#include "platform/base/errors.h"
#include "platform/files/files.h"
#include "platform/files/ini.h"

#include <QByteArray>

#include <algorithm>
#include <iterator>

using namespace platform;

QString LinguaCorrente;

namespace {

// Beyond this many bytes a language file is scanned by lines.
constexpr qsizetype LimiteIni = 64000;

// At the head of a text: what follows is UTF-8.
constexpr char SegnoUtf8[] = "\xEF\xBB\xBF";

QString Cartella()
{
    return AppPath() + QStringLiteral("\\lngmorlene\\");
}

QString FileImpostazione()
{
    return Cartella() + QStringLiteral("LangSetting.ini");
}

// The setting is a file of code page 1252. A name with other letters stands in it as UTF-8 behind
// the mark; so does one whose first letters would be taken for the mark.
QString NomePerImpostazione(const QString &nome)
{
    const QString segno = FromCodePage(SegnoUtf8);
    if (FromCodePage(ToCodePage(nome)) == nome && !nome.startsWith(segno))
        return nome;
    return segno + FromCodePage(nome.toUtf8());
}

QString NomeDaImpostazione(const QString &valore)
{
    const QByteArray byte = ToCodePage(valore);
    // The decoder takes off one mark; a second one is a letter of the name.
    return byte.startsWith(SegnoUtf8) ? QString::fromUtf8(byte) : valore;
}

// Where the line that begins at `riga` ends: before a CR or an LF, or with the file. Of CR LF the
// LF ends an empty line, which no key begins.
qsizetype FineRiga(const QByteArray &contenuto, qsizetype riga)
{
    const auto *fine = std::find_if(contenuto.cbegin() + riga, contenuto.cend(), [](char lettera) {
        return lettera == '\n' || lettera == '\r';
    });
    return std::distance(contenuto.cbegin(), fine);
}

QString CercaPerRighe(const QByteArray &contenuto, const QString &chiave)
{
    const QByteArray inizio = ToCodePage(chiave);
    qsizetype riga = contenuto.startsWith(SegnoUtf8) ? qsizetype{3} : 0;
    while (riga < contenuto.size()) {
        const qsizetype fine = FineRiga(contenuto, riga);
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

QString MLSValore(const IniFile &file, const QString &sezione, const QString &chiave)
{
    if (file.Content().size() <= LimiteIni)
        return file.Value(sezione, chiave);
    return CercaPerRighe(file.Content(), chiave);
}

QString MLSLeggiIni(const QString &file, const QString &sezione, const QString &chiave)
{
    return MLSValore(*OpenIni(file), sezione, chiave);
}

void MLSScriviIni(const QString &file, const QString &sezione, const QString &chiave,
                  const QString &valore)
{
    static_cast<void>(WriteIni(file, sezione, chiave, valore));
}

void LeggiLinguaCorrente()
{
    Skipping([] {
        LinguaCorrente = NomeDaImpostazione(MLSLeggiIni(
            FileImpostazione(), QStringLiteral("Language"), QStringLiteral("CurrentLanguage")));
    });
}

void SalvaLinguaCorrente()
{
    MLSScriviIni(FileImpostazione(), QStringLiteral("Language"), QStringLiteral("CurrentLanguage"),
                 NomePerImpostazione(LinguaCorrente));
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
