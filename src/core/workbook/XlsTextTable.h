#pragma once

#include "BiffWriter.h"

#include <QHashSeed>
#include <QString>

#include <vector>

/// The texts that the cells of a workbook share, each once, in the order in which they came.
///
/// They lie in one buffer as the file has them, and a hash finds them there: a table has so many texts that an
/// allocation for each would be most of what writing it costs.
class XlsTextTable
{
public:
    /// The number of a text in the table, which a cell is written with.
    quint32 NumberOf(QStringView text);

    /// Writes the table's record and its CONTINUE records.
    void Write(BiffWriter &writer) const;

private:
    struct Text
    {
        qsizetype at; // in the buffer
        quint32 hash;
        quint16 length;
        quint16 width; // bytes of a character
    };

    [[nodiscard]] QByteArrayView BytesOf(const Text &text) const;
    [[nodiscard]] bool IsSame(const Text &text, quint32 hash, QStringView other) const;
    /// The slot that holds a text that `isWanted`, or the free one where it belongs.
    template <typename IsWanted> [[nodiscard]] quint32 &SlotOf(quint32 hash, IsWanted isWanted);
    void Grow();

    QByteArray buffer;
    std::vector<Text> texts;
    std::vector<quint32> table = std::vector<quint32>(1024, FREE); // numbers of texts; a power of two of them
    size_t seed = QHashSeed::globalSeed();
    quint32 uses = 0;

    static constexpr quint32 FREE = 0xFFFFFFFF;
};
