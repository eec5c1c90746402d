// Capitals and small letters, one letter for one, so that lengths and names never change (ß stays).
#pragma once

#include <QString>

QString InMaiuscolo(const QString &testo);
QString InMinuscolo(const QString &testo);
