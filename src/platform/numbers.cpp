#include "platform/numbers.h"

#include "platform/errors.h"

#include <QLocale>

namespace platform {

QString FormatGrouped(double value)
{
    QLocale locale = QLocale::system();
    locale.setNumberOptions(QLocale::DefaultNumberOptions);
    QString text = locale.toString(value, 'f', 2);
    while (text.endsWith(locale.zeroDigit()))
        text.chop(locale.zeroDigit().size());
    return text;
}

float ToSingle(const QString &text)
{
    const QLocale locale = QLocale::system();
    QString bare = text.trimmed();
    bare.remove(locale.groupSeparator());
    bare.replace(locale.decimalPoint(), QStringLiteral("."));
    bool good = false;
    const float value = bare.toFloat(&good);
    if (!good)
        throw RunTimeError(TypeMismatch, text);
    return value;
}

} // namespace platform
