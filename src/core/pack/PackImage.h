// SPDX-License-Identifier: MIT
#pragma once

#include "PayloadBuffer.h"
#include "PayloadLayout.h"

/// The padding of an entry's data. The numbers in the directory are computed with that padding or without.
enum class EntryPadding
{
    None,
    FourBytes,
};

/// What one run of the construct phases gathers: the directory, the block and their bytes. Files are read directly into
/// their places in `memory`. All entries come before the first item.
///
///     PackImage image(memory, EntryPadding::FourBytes);
///     PackEntry &entry = image.AddEntry("AppLogo.img");
///     char *place = image.EntryData(entry, size);         // null: no memory
///     image.BeginBlock(); ... image.EndBlock();
///     image.base = 0;
///     if (image.LayOut()) payload = image.Serialise({});
class PackImage
{
public:
    /// Empties `memory`, which this object uses but doesn't own.
    PackImage(PayloadBuffer &memory, EntryPadding entryPadding);

    std::vector<PackEntry> entries;
    std::vector<BlockItem> items;
    qint64 base = -1; ///< the base of all offsets; the mode sets it before `LayOut`

    /// Valid until the next one is added.
    PackEntry &AddEntry(const NarrowText &name);
    /// Sets the entry's size and returns the place for its bytes; null if memory runs out.
    [[nodiscard]] char *EntryData(PackEntry &entry, quint64 size);

    void BeginBlock(); ///< ends the directory
    void EndBlock();   ///< ends the table

    /// Valid until the next one is added.
    BlockItem &AddItem(quint32 key, ItemKind kind, const IDRecord *id = nullptr);
    /// Extends the last item by `size` uninitialised bytes and returns the place of the first; null if memory runs out.
    [[nodiscard]] char *ExtendItem(quint64 size);
    /// Pads the last item with zero bytes to a multiple of 4. Returns false if memory runs out.
    [[nodiscard]] bool PadItem();
    /// The byte at `offset` of the last item.
    [[nodiscard]] char *ItemAt(quint64 offset) { return bytes.At(qint64(itemStart + offset)); }
    [[nodiscard]] quint64 ItemSize() const { return bytes.Size() - itemStart; }
    /// The size of all data so far, in bytes.
    [[nodiscard]] quint64 DataSize() const { return bytes.Size(); }

    /// Puts the items, with their data, into ascending order of their keys. Items with equal keys keep their order, and
    /// the end of the table stays the end. Returns false if memory runs out.
    [[nodiscard]] bool SortItems();
    /// Computes offsets and sizes. Returns false if they need more than 32 bits.
    [[nodiscard]] bool LayOut();
    /// The size of the payload in bytes, once it is laid out.
    [[nodiscard]] quint64 Total() const { return layout.Total(); }

    /// Returns `prefix` and the whole payload as one contiguous part of `memory`. May be called once, after `LayOut`.
    /// Returns a null view if memory runs out.
    [[nodiscard]] QByteArrayView Serialise(QByteArrayView prefix);

private:
    PayloadBuffer &bytes;
    EntryPadding padding;
    quint64 entryBytes = 0; // size of the entries' data; the items' data follows
    quint64 itemStart = 0;  // of the last item
    PayloadLayout layout;
};
