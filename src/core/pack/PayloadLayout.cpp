// SPDX-License-Identifier: MIT
#include "PayloadLayout.h"

#include <QtEndian>

#include <cstring>
#include <limits>

namespace
{

constexpr quint64 RECORD_BESIDE_NAME = 9; // the name's zero byte, offset, size

} // namespace

std::optional<PayloadLayout> LayOutPayload(std::vector<PackEntry> &entries, std::vector<BlockItem> &items, quint64 base)
{
    PayloadLayout layout;
    for (const PackEntry &entry : entries) {
        layout.directory += quint64(entry.name.size()) + RECORD_BESIDE_NAME;
        layout.entryData += entry.isBlock ? 0 : entry.paddedSize;
    }
    layout.directory = RoundUpTo4(layout.directory);
    layout.table = BLOCK_RECORD * quint64(items.size());
    for (const BlockItem &item : items)
        layout.blockData += item.size;
    if (base + layout.Total() > std::numeric_limits<quint32>::max())
        return std::nullopt;

    quint32 running = quint32(base + layout.directory);
    for (PackEntry &entry : entries) {
        entry.offset = running;
        if (entry.isBlock) {
            entry.size = quint32(layout.table);
            layout.tableOffset = running;
            quint32 itemOffset = running + quint32(layout.table);
            for (BlockItem &item : items) {
                item.offset = itemOffset;
                itemOffset += item.size;
            }
        } else {
            running += entry.paddedSize;
        }
    }
    return layout;
}

void WriteDirectory(const std::vector<PackEntry> &entries, const PayloadLayout &layout, char *at)
{
    char *const end = at + layout.directory;
    for (const PackEntry &entry : entries) {
        const size_t withZero = size_t(entry.name.size()) + 1;
        std::memcpy(at, entry.name.constData(), withZero);
        qToLittleEndian(entry.offset, at + withZero);
        qToLittleEndian(entry.size, at + withZero + 4);
        at += withZero + 8;
    }
    std::memset(at, 0, size_t(end - at));
}

void WriteBlockTable(const std::vector<BlockItem> &items, char *at)
{
    for (const BlockItem &item : items) {
        qToLittleEndian(item.key, at);
        qToLittleEndian(item.offset, at + 4);
        at += BLOCK_RECORD;
    }
}
