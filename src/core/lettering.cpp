#include "core/lettering.h"

QString InMaiuscolo(const QString &testo)
{
    QString risultato = testo;
    for (QChar &lettera : risultato)
        lettera = lettera.toUpper();
    return risultato;
}

QString InMinuscolo(const QString &testo)
{
    QString risultato = testo;
    for (QChar &lettera : risultato)
        lettera = lettera.toLower();
    return risultato;
}
