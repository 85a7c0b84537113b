// SPDX-License-Identifier: MIT
#pragma once

#include "PayloadFormat.h"
#include "Text.h"

#include <vector>

/// A record of the directory, with its numbers as the file has them.
struct DirectoryEntry
{
    NarrowText name;
    quint32 offset;
    quint32 size;
    QByteArrayView data;
};

/// A record of the block table.
struct BlockEntry
{
    quint32 key;
    quint32 offset;
    quint32 size; ///< up to the next record's offset, so padding is included
    QByteArrayView data;
};

/// One string of a language's table.
struct TableString
{
    quint32 id;
    QString text;
    quint32 offset; ///< from the start of its table
};

/// The strings of one language, each ID once. If an ID occurs several times, the first counts, as on the device.
struct LanguageStrings
{
    quint32 language;
    std::vector<TableString> strings;
};

/// A payload whose offsets have all been checked: no two parts share a byte, and none is outside of the payload. Its
/// views point into the payload's bytes.
struct Payload
{
    quint64 base = 0;
    std::vector<DirectoryEntry> entries; ///< without the empty one that ends the directory
    std::vector<BlockEntry> block;       ///< without the one that ends the table
    std::vector<LanguageStrings> languages;
};

/// Reads a payload (docs/payload-format.md). Its first offset determines its base. Returns an empty text, or what is
/// wrong with the bytes: field, value and limit.
[[nodiscard]] QString ReadPayload(QByteArrayView bytes, Payload &payload);
