#include "support/dialogs.h"

#include "core/shared_state.h"
#include "platform/base/errors.h"
#include "platform/files/files.h"
#include "platform/host/host.h"

using namespace platform;

namespace {

constexpr qsizetype NomePiuLungo = 250;
constexpr qsizetype LetterePerIlNome = 255;

} // namespace

bool ScegliColore(VisualControl &controllo)
{
    const auto colore = host().ChooseColor();
    if (!colore)
        return false;
    controllo.SetForeColor(*colore);
    return true;
}

bool ScegliFont(VisualControl &controllo)
{
    const auto scelto = host().ChooseFont();
    if (!scelto)
        return false;
    controllo.SetFontBold(scelto->Bold);
    controllo.SetFontItalic(scelto->Italic);
    controllo.SetFontUnderline(scelto->Underline);
    controllo.SetFontName(scelto->Name);
    controllo.SetFontSize(RoundToLong(scelto->Size));
    return true;
}

QString ScegliFile(ModoFile modo, const QString &titolo, const QString &nome, const QString &filtro,
                   const QString &cartella, const QString &estensione)
{
    if (nome.size() > NomePiuLungo)
        throw RunTimeError(Overflow);
    QString scelto = host().ChooseFile({.Open = modo == ModoFile::Apri,
                                        .Title = titolo,
                                        .ProposedName = nome,
                                        .Pattern = filtro,
                                        .StartFolder = NativePath(cartella),
                                        .Extension = estensione});
    UltimoFileScelto = scelto.section(QLatin1Char('/'), -1).left(LetterePerIlNome);
    UltimoFileScelto = UltimoFileScelto.leftJustified(LetterePerIlNome, QChar(u'\0'));
    return scelto;
}
