// SPDX-License-Identifier: MIT
#pragma once

#include "BiffWriter.h"
#include "TextPool.h"

#include <QHashSeed>

#include <vector>

/// The texts that the cells of a workbook share. Each text is in it once, in the order of first use.
class XlsTextTable
{
public:
    /// Returns the number of a text in the table, which its cell is written with. Adds the text if the table lacks it.
    quint32 NumberOf(QStringView text);
    /// Frees the memory that is needed to find texts. Call it when no more texts will be added.
    void Close() { table = {}; }

    /// Writes the table's record and its CONTINUE records.
    void Write(BiffWriter &writer) const;

private:
    [[nodiscard]] size_t HashOf(TextPool::Ref text) const { return qHash(pool.Bytes(text), seed); }
    /// Returns the slot of an equal text, or the free slot for this text.
    [[nodiscard]] quint32 &SlotOf(TextPool::Ref text);
    void Grow();

    TextPool pool;
    std::vector<TextPool::Ref> texts;
    std::vector<quint32> table = std::vector<quint32>(1024, FREE); // numbers of texts; its size is a power of two
    size_t seed = QHashSeed::globalSeed();
    quint32 uses = 0;

    static constexpr quint32 FREE = 0xFFFFFFFF;
};
