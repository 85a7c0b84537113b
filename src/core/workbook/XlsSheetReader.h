// SPDX-License-Identifier: MIT
#pragma once

#include "BiffReader.h"
#include "Sheet.h"

#include <optional>
#include <vector>

/// Reads the cells of one worksheet from a workbook's stream, from its BOF to its EOF.
///
/// Keeps views of the stream and of the shared texts.
class XlsSheetReader
{
public:
    XlsSheetReader(QByteArrayView stream, quint32 at, const std::vector<TextPool::Ref> &shared, Sheet &result)
        : records(stream, at), texts(shared), sheet(result), grant(FIXED_GRANT + GRANT_BY_BYTE * quint64(stream.size()))
    {
    }

    [[nodiscard]] WorkbookResult Read();

private:
    using Record = BiffReader::Record;

    /// The limit of the number of characters to which numbers are converted. Texts can't be much larger than the file,
    /// but 6 bytes of it can be a number of 300 digits. The limit grows with the file, so that no ordinary file is
    /// refused.
    static constexpr quint64 FIXED_GRANT = 16 << 20;
    static constexpr quint64 GRANT_BY_BYTE = 3;

    [[nodiscard]] WorkbookResult ReadRecord(const Record &record);
    [[nodiscard]] WorkbookResult CheckDimensions(const Record &record) const;
    [[nodiscard]] WorkbookResult ReadAwaited(BiffCursor data);
    [[nodiscard]] WorkbookResult ReadCell(const Record &record, quint16 row, quint16 column);
    [[nodiscard]] WorkbookResult ReadFormula(const Record &record, quint16 row, quint16 column);
    [[nodiscard]] WorkbookResult ReadNumbers(const Record &record, quint16 row, quint16 column);
    [[nodiscard]] WorkbookResult ReadShared(const Record &record, quint16 row, quint16 column);
    [[nodiscard]] WorkbookResult AddText(quint16 row, quint16 column, std::optional<TextPool::Ref> text);
    [[nodiscard]] WorkbookResult AddNumber(quint16 row, quint16 column, std::optional<double> value);

    BiffReader records;
    const std::vector<TextPool::Ref> &texts;
    Sheet &sheet;
    quint64 grant;
    std::optional<std::pair<quint16, quint16>> awaited; // the cell of a formula whose text is in a later record
};
