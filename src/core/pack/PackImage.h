#pragma once

#include "PayloadBuffer.h"
#include "PayloadLayout.h"

/// What fills an entry's data up: the directory's numbers count with or without it.
enum class EntryPadding
{
    None,
    FourBytes,
};

/// What one run of the construct phases gathers: the directory, the block and their bytes, which are read straight into
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
    /// Empties `memory`, which it uses and doesn't own.
    PackImage(PayloadBuffer &memory, EntryPadding entryPadding);

    std::vector<PackEntry> entries;
    std::vector<BlockItem> items;
    qint64 base = -1; ///< what offsets count from; set by the mode before `LayOut`

    /// Valid until the next one is added.
    PackEntry &AddEntry(const NarrowText &name);
    /// Gives the entry its size, and the place for so many bytes.
    [[nodiscard]] char *EntryData(PackEntry &entry, quint64 size);

    void BeginBlock(); ///< ends the directory
    void EndBlock();   ///< ends the table

    /// Valid until the next one is added.
    BlockItem &AddItem(quint32 key, ItemKind kind);
    /// Makes the last item longer by `size` bytes of any content, and gives the place of the first.
    [[nodiscard]] char *ExtendItem(quint64 size);
    /// Fills the last item up to a multiple of 4 with zero bytes. False when the memory ends.
    [[nodiscard]] bool PadItem();
    /// The byte at `offset` of the last item.
    [[nodiscard]] char *ItemAt(quint64 offset) { return bytes.At(qint64(itemStart + offset)); }
    [[nodiscard]] quint64 ItemSize() const { return bytes.Size() - itemStart; }

    /// Computes offsets and sizes. False when they need more than 32 bits.
    [[nodiscard]] bool LayOut();
    /// The size of the payload that was laid out.
    [[nodiscard]] quint64 Total() const { return layout.Total(); }

    /// The whole payload behind `prefix`, in one stretch of `memory`. Once only, after `LayOut`. Null view: no memory.
    [[nodiscard]] QByteArrayView Serialise(QByteArrayView prefix);

private:
    PayloadBuffer &bytes;
    EntryPadding padding;
    quint64 entryBytes = 0; // the entries' data; the items' follow
    quint64 itemStart = 0;  // of the last item
    PayloadLayout layout;
};
