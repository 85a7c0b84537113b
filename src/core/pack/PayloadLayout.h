// SPDX-License-Identifier: MIT
#pragma once

#include "PayloadFormat.h"
#include "Text.h"

#include <optional>
#include <vector>

class IDRecord;

// The payload, which a device reads. All numbers have 32 bits and are little-endian.
//
//   part            size                        content
//   directory       d, filled up to D = 4 x n   records: name, zero byte, offset (4), size (4); not aligned
//   entry data      sum of paddedSize           each entry's bytes, in directory order
//   block table     8 x N                       records: key (4), offset (4); the last has the key 0xFFFFFFFF
//   block data      sum of the items' sizes     each item's bytes, in table order
//
// The last two entries of the directory are "zep-2.0", whose data is the table, and an entry with an empty name, which
// ends the directory. All offsets are relative to `base`, the place of the payload's first byte (or 0).

/// A file of the directory.
struct PackEntry
{
    NarrowText name; ///< the device reads it up to its first zero byte
    quint32 offset = 0;
    quint32 size = 0;
    quint32 paddedSize = 0;
    bool isBlock = false; ///< the entry of the block table; a listed file may have its name too
};

enum ItemKind : qint32
{
    ITEM_STRINGS = 0,
    ITEM_FILE = 1,
    ITEM_IMAGE = 2,
    ITEM_LAYOUT = 3,
};

/// A resource that the device finds by its number.
struct BlockItem
{
    quint32 key = 0;
    quint32 offset = 0;
    quint32 size = 0; ///< with its zero bytes at the end; a multiple of 4
    ItemKind itemKind = ITEM_STRINGS;
    const IDRecord *id = nullptr; ///< of the resource; null for a language
    size_t firstPiece = 0;        ///< of its content; see PackImage
};

inline constexpr char BLOCK_NAME[] = "zep-2.0";
inline constexpr quint32 BLOCK_END_KEY = 0xFFFFFFFF;
inline constexpr quint32 BLOCK_RECORD = 8; ///< bytes

/// Sizes of the parts, in bytes.
struct PayloadLayout
{
    quint64 directory = 0; ///< D
    quint64 entryData = 0;
    quint64 table = 0;
    quint64 blockData = 0;
    quint32 tableOffset = 0; ///< relative to `base`

    [[nodiscard]] quint64 Total() const { return directory + entryData + table + blockData; }
};

/// Sets the offset of every entry and item, and the size of the block's entry, from names and sizes alone. Returns
/// nothing if an offset would need more than 32 bits.
[[nodiscard]] std::optional<PayloadLayout> LayOutPayload(std::vector<PackEntry> &entries, std::vector<BlockItem> &items,
                                                         quint64 base);

/// Writes the directory with its padding: `layout.directory` bytes.
void WriteDirectory(const std::vector<PackEntry> &entries, const PayloadLayout &layout, char *at);
/// Writes the block table: `layout.table` bytes.
void WriteBlockTable(const std::vector<BlockItem> &items, char *at);
