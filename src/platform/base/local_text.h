// Numbers and dates as the person's system writes them on the screen.
#pragma once

#include <QString>

class QDate;
class QLocale;

namespace platform {

// With that many decimals and no sign between thousands.
QString LocalNumber(double value, int decimals);

// Day, month and year in numbers, the year with four digits, in the order and with the signs of the
// place; 21/11/2026 where a place would write the month's name.
QString LocalDate(const QDate &date, const QLocale &locale);

} // namespace platform
