// SPDX-License-Identifier: MIT
#include "CsvGuard.h"

#include <algorithm>

bool NeedsCsvGuard(QStringView text)
{
    static constexpr QStringView STARTS = u"=+-@\uFF1D\uFF0B\uFF0D\uFF20";
    static constexpr QStringView CONTROLS = u"\t\r\n";
    const auto begin = std::find_if(text.begin(), text.end(), [](QChar c) { return c != u'\''; });
    const auto start = std::find_if(begin, text.end(), [](QChar c) { return !c.isSpace(); });
    return (begin != text.end() && CONTROLS.contains(*begin)) || (start != text.end() && STARTS.contains(*start));
}

QStringView WithoutCsvGuard(QStringView text)
{
    return text.startsWith(u'\'') && NeedsCsvGuard(text) ? text.sliced(1) : text;
}
