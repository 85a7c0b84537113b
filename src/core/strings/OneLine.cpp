#include "OneLine.h"

#include <algorithm>

namespace
{

bool DividesCells(QChar c)
{
    return c == u'\t' || c == u'\n' || c == u'\r' || c == QChar::LineSeparator || c == QChar::ParagraphSeparator;
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
