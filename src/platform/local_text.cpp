#include "platform/local_text.h"

#include <QLocale>

namespace platform {

QString LocalNumber(double value, int decimals)
{
    QLocale locale = QLocale::system();
    locale.setNumberOptions(QLocale::OmitGroupSeparator);
    return locale.toString(value, 'f', decimals);
}

} // namespace platform
