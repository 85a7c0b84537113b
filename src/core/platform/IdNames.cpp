// SPDX-License-Identifier: MIT
#include "IdNames.h"

#include <charconv>
#include <cmath>
#include <iterator>

namespace
{

bool IsAsciiWordChar(QChar c)
{
    return c == u'_' || (c >= u'0' && c <= u'9') || (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z');
}

bool IsValid(auto text)
{
    if (text.isEmpty() || text.size() > MAX_ID_NAME || (text[0] >= u'0' && text[0] <= u'9'))
        return false;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (!IsAsciiWordChar(text[i]))
            return false;
    }
    return true;
}

} // namespace

bool IsValidIdName(QStringView text)
{
    return IsValid(text);
}

bool IsValidIdName(QByteArrayView utf8)
{
    return IsValid(QLatin1StringView(utf8)); // no byte of a longer character is an allowed character
}

bool MakeIdSafe(QString &text)
{
    bool anyLeft = false;
    for (QChar &c : text) {
        if (IsAsciiWordChar(c))
            anyLeft = true;
        else
            c = u'_';
    }
    return anyLeft;
}

QString AppendCounter(const QString &base, int n)
{
    const QString digits = QString::number(n);
    return base.left(MAX_ID_NAME - digits.size()) + digits;
}

QString FormatFloat(double value)
{
    char text[320]; // the largest number has 309 digits before the point
    const char *end = std::to_chars(text, std::end(text), value, std::chars_format::fixed, 6).ptr;
    if (std::isfinite(value)) {
        while (end[-1] == '0')
            --end;
        if (end[-1] == '.')
            --end;
    }
    return QString::fromLatin1(text, end - text);
}
