// SPDX-License-Identifier: MIT
#include "ListingText.h"

using namespace Qt::StringLiterals;

namespace
{

/// True for characters that control a terminal or change the direction of the text around them.
bool IsSteering(QChar c)
{
    const char16_t unit = c.unicode();
    return c.category() == QChar::Other_Control || unit == 0x2028 || unit == 0x2029 ||
           (unit >= 0x202A && unit <= 0x202E) || (unit >= 0x2066 && unit <= 0x2069);
}

} // namespace

QString WholeCharacters(QString text)
{
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate())
            ++i;
        else if (text[i].isSurrogate())
            text[i] = QChar(QChar::ReplacementCharacter);
    }
    return text;
}

QByteArray OnOneLine(const QString &text)
{
    QString result;
    for (const QChar c : text) {
        if (c == u'\n' || c == u'\r' || c == u'\t')
            result += c == u'\n' ? u"\\n"_s : c == u'\r' ? u"\\r"_s : u"\\t"_s;
        else
            result += IsSteering(c) ? u'?' : c;
    }
    return WholeCharacters(std::move(result)).toUtf8();
}

QByteArray Column(const QByteArray &text)
{
    return text.rightJustified(12);
}
