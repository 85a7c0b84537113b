#include "IdNames.h"

namespace
{

bool IsAsciiWordChar(QChar c)
{
    return c == u'_' || (c >= u'0' && c <= u'9') || (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z');
}

} // namespace

bool IsValidIdName(QStringView text)
{
    if (text.isEmpty() || text.size() > MAX_ID_NAME || (text[0] >= u'0' && text[0] <= u'9'))
        return false;
    for (const QChar c : text) {
        if (!IsAsciiWordChar(c))
            return false;
    }
    return true;
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
    QString text = QString::asprintf("%f", value);
    if (text.contains(u'.')) {
        while (text.endsWith(u'0'))
            text.chop(1);
        if (text.endsWith(u'.'))
            text.chop(1);
    }
    return text;
}
