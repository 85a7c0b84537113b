// SPDX-License-Identifier: MIT
#include "XlsxDate.h"

#include <QDateTime>

namespace
{

/// Returns the days since the last day of 1899. These sheets have a 29 February 1900, which didn't exist.
qint64 DaysOf(QDate date, bool from1904)
{
    if (from1904)
        return QDate(1904, 1, 1).daysTo(date);
    const qint64 days = QDate(1899, 12, 31).daysTo(date);
    return date < QDate(1900, 3, 1) ? days : days + 1;
}

} // namespace

std::optional<double> DateNumber(std::string_view text, bool from1904)
{
    constexpr double DAY = 24.0 * 60 * 60 * 1000; // milliseconds
    QString rest = QString::fromUtf8(text.data(), qsizetype(text.size())).trimmed();
    if (rest.endsWith(u'Z'))
        rest.chop(1);
    double number = 0;
    const qsizetype division = rest.indexOf(u'T');
    if (division >= 0 || rest.contains(u'-')) {
        const QDate date = QDate::fromString(rest.left(division), Qt::ISODate);
        if (!date.isValid())
            return std::nullopt;
        number = double(DaysOf(date, from1904));
        if (division < 0)
            return number;
        rest = rest.mid(division + 1);
    }
    const QTime time = QTime::fromString(rest, Qt::ISODateWithMs);
    if (!time.isValid())
        return std::nullopt;
    return number + time.msecsSinceStartOfDay() / DAY;
}
