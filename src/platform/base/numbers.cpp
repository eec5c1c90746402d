#include "platform/base/numbers.h"

#include "platform/base/errors.h"

#include <QLocale>

#include <cmath>
#include <limits>

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
    const double value = bare.toDouble(&good);
    // A number beyond any is infinite and not good; "inf" would be good, and is no number.
    if (good != std::isfinite(value))
        throw RunTimeError(TypeMismatch, text);
    if (std::abs(value) > std::numeric_limits<float>::max())
        throw RunTimeError(Overflow, text);
    return static_cast<float>(value);
}

} // namespace platform
