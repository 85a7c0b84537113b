// SPDX-License-Identifier: MIT
#include "ByteCount.h"

#include <algorithm>

std::optional<quint64> ParseByteCount(QStringView text)
{
    constexpr quint64 MOST = quint64(1) << 32;
    quint64 unit = 1;
    if (text.endsWith(u'k', Qt::CaseInsensitive))
        unit = quint64(1) << 10;
    else if (text.endsWith(u'm', Qt::CaseInsensitive))
        unit = quint64(1) << 20;
    const QStringView digits = unit == 1 ? text : text.chopped(1);
    if (digits.isEmpty() || !std::all_of(digits.begin(), digits.end(), [](QChar c) { return c >= u'0' && c <= u'9'; }))
        return std::nullopt;
    bool isNumber = false;
    const quint64 number = digits.toULongLong(&isNumber);
    if (!isNumber || number == 0 || number > MOST / unit)
        return std::nullopt;
    return number * unit;
}
