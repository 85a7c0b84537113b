#pragma once

#include "PayloadFormat.h"
#include "Text.h"

#include <vector>

/// A record of the directory, its numbers as they stand in the file.
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
    quint32 size; ///< up to the next record's offset, so with its padding
    QByteArrayView data;
};

/// One string of a language's table.
struct TableString
{
    quint32 id;
    QString text;
};

/// The strings of one language, each ID once: of several the first, as on the device.
struct LanguageStrings
{
    quint32 language;
    std::vector<TableString> strings;
};

/// A payload whose every offset has been checked: no two parts share a byte, and none lies outside. Views into its
/// bytes.
struct Payload
{
    quint64 base = 0;
    std::vector<DirectoryEntry> entries; ///< without the empty one that ends the directory
    std::vector<BlockEntry> block;       ///< without the one that ends the table
    std::vector<LanguageStrings> languages;
};

/// Reads a payload (docs/payload-format.md). Its base is what its first offset says. Empty, or what is wrong with the
/// bytes: field, value and limit.
[[nodiscard]] QString ReadPayload(QByteArrayView bytes, Payload &payload);
