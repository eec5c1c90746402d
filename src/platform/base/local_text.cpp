#include "platform/base/local_text.h"

#include <QDate>
#include <QLocale>

namespace platform {

QString LocalNumber(double value, int decimals)
{
    QLocale locale = QLocale::system();
    locale.setNumberOptions(QLocale::OmitGroupSeparator);
    return locale.toString(value, 'f', decimals);
}

QString LocalDate(const QDate &date, const QLocale &locale)
{
    QString format = locale.dateFormat(QLocale::ShortFormat);
    // The plain C locale has an English name there.
    if (format.contains(QStringLiteral("MMM")))
        format = QStringLiteral("dd/MM/yyyy");
    if (!format.contains(QStringLiteral("yyyy")))
        format.replace(QStringLiteral("yy"), QStringLiteral("yyyy"));
    return locale.toString(date, format);
}

} // namespace platform
