// SPDX-License-Identifier: MIT
#pragma once

#include <QStringView>

#include <cstddef>

/// The memory of a model's strings: their records and their texts, each in blocks of 256 KiB, in the order in which
/// they are made. A project can have a million of them, and an allocation for each would take longer and need more
/// memory.
///
/// A place in a block is used once. A block is freed with the last record or text in it, so texts that were replaced
/// don't pile up. All records must be destroyed before this object is. Main thread only.
class StringMemory
{
public:
    StringMemory() = default;
    ~StringMemory();
    StringMemory(const StringMemory &) = delete;
    StringMemory &operator=(const StringMemory &) = delete;

    /// Returns memory for a record. `size` is a multiple of 8 and at most 1 KiB.
    [[nodiscard]] void *NewRecord(std::size_t size) { return Take(records, size); }
    static void FreeRecord(void *record, std::size_t size) { Free(record, size); }
    /// Returns the object from which the memory of a record is.
    [[nodiscard]] static StringMemory &Of(const void *record);

    /// Returns a copy of a text, for `TextAt` and `FreeText`; null for an empty text.
    [[nodiscard]] const char16_t *NewText(QStringView text);
    static void FreeText(const char16_t *text);
    /// The text is valid until `FreeText`.
    [[nodiscard]] static QStringView TextAt(const char16_t *text)
    {
        return text ? QStringView(text, LengthOf(text)) : QStringView();
    }

private:
    struct Block;

    [[nodiscard]] static qsizetype LengthOf(const char16_t *text);
    [[nodiscard]] void *Take(Block *&block, std::size_t size);
    [[nodiscard]] Block *NewBlock(std::size_t size);
    [[nodiscard]] char *Pages(std::size_t size);
    void FreeRegion();
    static void Free(const void *place, std::size_t size);
    static void Leave(Block *block);

    // The blocks that are being filled; null before the first use.
    Block *records = nullptr;
    Block *texts = nullptr;
    // The pages of the last region that no block has yet.
    char *region = nullptr;
    std::size_t regionSize = 0; // bytes
    int blocksBefore = 0;       // the number of blocks that were made outside regions
};
