// SPDX-License-Identifier: MIT
#include "JsonWriter.h"

void JsonWriter::Key(QStringView key)
{
    Next();
    AppendString(key);
    text += ": ";
    isAfterKey = true;
}

void JsonWriter::String(QStringView value)
{
    Next();
    AppendString(value);
}

void JsonWriter::Number(qint64 value)
{
    Next();
    text += QByteArray::number(value);
}

void JsonWriter::Bool(bool value)
{
    Next();
    text += value ? "true" : "false";
}

void JsonWriter::Begin(char bracket)
{
    Next();
    (text += bracket) += '\n';
    ++depth;
    isFirst = true;
}

void JsonWriter::End(char bracket)
{
    if (!isFirst)
        text += '\n';
    text += QByteArray(4 * --depth, ' ') + bracket;
    isFirst = false;
}

void JsonWriter::Next()
{
    if (!isAfterKey && depth > 0) {
        if (!isFirst)
            text.append(",\n");
        text.append(4 * depth, ' ');
    }
    isAfterKey = isFirst = false;
}

void JsonWriter::AppendString(QStringView value)
{
    text += '"';
    qsizetype start = 0; // of what is written as it is
    for (qsizetype i = 0; i < value.size(); ++i) {
        const QChar c = value[i];
        if (c.isHighSurrogate() && i + 1 < value.size() && value[i + 1].isLowSurrogate()) {
            ++i;
            continue;
        }
        if (c >= u' ' && c != u'"' && c != u'\\' && !c.isSurrogate())
            continue;
        text += value.sliced(start, i - start).toUtf8();
        AppendEscape(c.unicode());
        start = i + 1;
    }
    text += value.sliced(start).toUtf8();
    text += '"';
}

void JsonWriter::AppendEscape(char16_t unit)
{
    static constexpr QByteArrayView UNITS = "\"\\\b\f\n\r\t";
    static constexpr char LETTERS[] = "\"\\bfnrt";
    const qsizetype known = unit < 0x80 ? UNITS.indexOf(char(unit)) : -1;
    text += '\\';
    if (known >= 0)
        text += LETTERS[known];
    else
        text += 'u' + QByteArray::number(unit, 16).rightJustified(4, '0');
}
