// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

/// Writes JSON as QJsonDocument does, with the keys of an object in the order of writing. The caller must give every
/// value of an object its key, and end what it begins.
class JsonWriter
{
public:
    /// Appends to `to`, which must live as long as the writer.
    explicit JsonWriter(QByteArray &to) : text(to) {}

    void BeginObject() { Begin('{'); }
    void EndObject() { End('}'); }
    void BeginArray() { Begin('['); }
    void EndArray() { End(']'); }
    void Key(const QString &key);
    void String(const QString &value);
    void Number(qint64 value);
    void Bool(bool value);

private:
    void Begin(char bracket);
    void End(char bracket);
    /// Writes what comes between two values, or before the first.
    void Next();
    void AppendString(const QString &value);

    QByteArray &text;
    int depth = 0;
    bool isFirst = false;
    bool isAfterKey = false;
};
