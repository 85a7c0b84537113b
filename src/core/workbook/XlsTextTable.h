#pragma once

#include "BiffWriter.h"
#include "TextPool.h"

#include <QHashSeed>

#include <vector>

/// The texts that the cells of a workbook share, each once, in the order in which they came.
class XlsTextTable
{
public:
    /// The number of a text in the table, which a cell is written with.
    quint32 NumberOf(QStringView text);
    /// No more texts will come: lets go of what found them.
    void Close() { table = {}; }

    /// Writes the table's record and its CONTINUE records.
    void Write(BiffWriter &writer) const;

private:
    [[nodiscard]] size_t HashOf(TextPool::Ref text) const { return qHash(pool.Bytes(text), seed); }
    /// The slot that holds a text equal to this one, or the free one where it belongs.
    [[nodiscard]] quint32 &SlotOf(TextPool::Ref text);
    void Grow();

    TextPool pool;
    std::vector<TextPool::Ref> texts;
    std::vector<quint32> table = std::vector<quint32>(1024, FREE); // numbers of texts; a power of two of them
    size_t seed = QHashSeed::globalSeed();
    quint32 uses = 0;

    static constexpr quint32 FREE = 0xFFFFFFFF;
};
