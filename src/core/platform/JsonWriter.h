// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

/// Writes JSON with four blanks for each level, the keys of an object in the order of the calls. Adds the commas. Half
/// of a surrogate pair in a text is written as an escape sequence.
///
///     JsonWriter json(bytes);
///     json.BeginObject();
///     json.Key("version");
///     json.Number(1);
///     json.EndObject();
class JsonWriter
{
public:
    /// Appends to `to`, which must outlive this object.
    explicit JsonWriter(QByteArray &to) : text(to) {}

    void BeginObject() { Begin('{'); }
    void EndObject() { End('}'); }
    void BeginArray() { Begin('['); }
    void EndArray() { End(']'); }
    void Key(QStringView key);
    void Key(const char *key) { Key(QString::fromLatin1(key)); }
    void String(QStringView value);
    void Number(qint64 value);
    void Bool(bool value);

private:
    void Begin(char bracket);
    void End(char bracket);
    /// Writes what comes between two values, or before the first.
    void Next();
    void AppendString(QStringView value);
    void AppendEscape(char16_t unit);

    QByteArray &text;
    int depth = 0;
    bool isFirst = false;
    bool isAfterKey = false;
};
