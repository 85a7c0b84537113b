// SPDX-License-Identifier: MIT
#include "PackImage.h"

#include <algorithm>
#include <cstring>

PackImage::PackImage(PayloadBuffer &memory, EntryPadding entryPadding) : bytes(memory), padding(entryPadding)
{
    bytes.Clear();
}

PackEntry &PackImage::AddEntry(const NarrowText &name)
{
    return entries.emplace_back(PackEntry{name});
}

char *PackImage::EntryData(PackEntry &entry, quint64 size)
{
    const quint64 padded = padding == EntryPadding::FourBytes ? RoundUpTo4(size) : size;
    char *place = bytes.Append(padded);
    if (!place)
        return nullptr;
    std::memset(place + size, 0, size_t(padded - size));
    entry.size = quint32(size);
    entry.paddedSize = quint32(padded);
    entryBytes = bytes.Size();
    return place;
}

void PackImage::BeginBlock()
{
    AddEntry(BLOCK_NAME).isBlock = true;
    AddEntry({});
}

void PackImage::EndBlock()
{
    AddItem(BLOCK_END_KEY, ITEM_STRINGS);
}

BlockItem &PackImage::AddItem(quint32 key, ItemKind kind, const IDRecord *id)
{
    itemStart = bytes.Size();
    BlockItem &item = items.emplace_back();
    item.key = key;
    item.itemKind = kind;
    item.id = id;
    return item;
}

char *PackImage::ExtendItem(quint64 size)
{
    char *place = bytes.Append(size);
    if (place)
        items.back().size = quint32(ItemSize());
    return place;
}

bool PackImage::PadItem()
{
    const quint64 missing = RoundUpTo4(ItemSize()) - ItemSize();
    char *place = ExtendItem(missing);
    if (!place)
        return false;
    std::memset(place, 0, size_t(missing));
    return true;
}

bool PackImage::SortItems()
{
    struct Placed
    {
        BlockItem item;
        const char *data;
    };
    std::vector<Placed> sorted;
    sorted.reserve(items.size());
    const char *data = bytes.At(qint64(entryBytes));
    for (const BlockItem &item : items) {
        sorted.push_back({item, data});
        data += item.size;
    }
    std::stable_sort(sorted.begin(), sorted.end() - 1,
                     [](const Placed &a, const Placed &b) { return a.item.key < b.item.key; });

    const quint64 size = bytes.Size() - entryBytes;
    PayloadBuffer copy(0);
    char *const first = copy.Append(size);
    if (!first)
        return false;
    char *place = first;
    for (size_t n = 0; n < sorted.size(); ++n) {
        items[n] = sorted[n].item;
        std::memcpy(place, sorted[n].data, items[n].size);
        place += items[n].size;
    }
    std::memcpy(bytes.At(qint64(entryBytes)), first, size_t(size));
    return true;
}

bool PackImage::LayOut()
{
    const auto computed = LayOutPayload(entries, items, quint64(base));
    if (computed)
        layout = *computed;
    return computed.has_value();
}

QByteArrayView PackImage::Serialise(QByteArrayView prefix)
{
    const quint64 head = quint64(prefix.size()) + layout.directory + layout.table;
    if (!bytes.EnsureFront(head))
        return {};
    // Move the entries' data, usually an icon, to the front, which makes room for the table before the items.
    std::memmove(bytes.At(-qint64(layout.table)), bytes.At(0), size_t(entryBytes));
    WriteBlockTable(items, bytes.At(qint64(entryBytes) - qint64(layout.table)));
    WriteDirectory(entries, layout, bytes.At(-qint64(layout.table + layout.directory)));
    char *const start = bytes.At(-qint64(head));
    if (!prefix.isEmpty())
        std::memcpy(start, prefix.data(), size_t(prefix.size()));
    return QByteArrayView(start, qsizetype(quint64(prefix.size()) + layout.Total()));
}
