// SPDX-License-Identifier: MIT
#include "JsonWriter.h"

#include <QJsonArray>
#include <QJsonDocument>

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
    if (!isAfterKey && depth > 0)
        text += (isFirst ? QByteArray() : QByteArray(",\n")) + QByteArray(4 * depth, ' ');
    isAfterKey = isFirst = false;
}

void JsonWriter::AppendString(QStringView value)
{
    // The text is quoted as the only entry of a list, which is "[", the quoted text and "]".
    const QByteArray list = QJsonDocument(QJsonArray{value.toString()}).toJson(QJsonDocument::Compact);
    text += QByteArrayView(list).sliced(1, list.size() - 2);
}
