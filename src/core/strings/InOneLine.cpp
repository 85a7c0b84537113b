// SPDX-License-Identifier: MIT
#include "InOneLine.h"

#include "Text.h"

#include <algorithm>

namespace
{

bool DividesCells(QChar c)
{
    return c == u'\t' || EndsLine(c);
}

} // namespace

QString InOneLine(const QString &text)
{
    if (std::none_of(text.begin(), text.end(), DividesCells))
        return text;
    QString line = text;
    line.replace(QStringLiteral("\r\n"), QStringLiteral(" "));
    std::replace_if(line.begin(), line.end(), DividesCells, u' ');
    return line;
}
