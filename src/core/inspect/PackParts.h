// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

#include <vector>

class Environment;
struct InspectResult;

enum class PartKind
{
    Entry,   ///< the bytes of an entry of the directory
    Item,    ///< the bytes of a file, image or layout, without its prefix
    String,  ///< a text with its zero unit
    Prefix,  ///< the zero bytes before files, all together
    Table,   ///< the directory, the item table, or the table of a language's strings
    Padding, ///< bytes of the payload to which nothing refers, nearly always padding; all together or those of a
             ///< language
    File,    ///< what is outside the payload
};

/// A part of a packed file.
struct PackedPart
{
    PartKind kind;
    quint32 number = 0;    ///< the key of an item, the ID of a string
    int language = -1;     ///< the language that a string, a table or padding belongs to; -1 for none
    QString name = {};     ///< of an entry, of a table without a language, or of a part outside the payload
    QByteArray bytes = {}; ///< may point into the file

    [[nodiscard]] bool IsOfPayload() const { return kind != PartKind::File; }
};

/// Splits a packed file into parts: each byte of the file is in exactly one of them, so their sizes add up to the size
/// of the file, and those in the payload to that of the payload. The result must outlive the parts.
[[nodiscard]] std::vector<PackedPart> PartsOf(const Environment &env, const InspectResult &result);
