// SPDX-License-Identifier: MIT
#include "XlsSheetReader.h"

#include "Biff.h"
#include "ByteReader.h"
#include "IdNames.h"
#include "XlsFault.h"

#include <bit>
#include <utility>

namespace
{

std::optional<double> Double(QByteArrayView bytes, quint64 at)
{
    const auto low = ByteReader(bytes).U32(at);
    const auto high = ByteReader(bytes).U32(at + 4);
    if (!low || !high)
        return std::nullopt;
    return std::bit_cast<double>(quint64(*high) << 32 | *low);
}

/// Unpacks a number from 4 bytes: the upper 30 bits of a double, or an integer of 30 bits. Either may be multiplied by
/// 100.
double Unpacked(quint32 packed)
{
    const double value =
        packed & 2 ? double(qint32(packed) >> 2) : std::bit_cast<double>(quint64(packed & ~quint32(3)) << 32);
    return packed & 1 ? value / 100 : value;
}

} // namespace

WorkbookResult XlsSheetReader::Read()
{
    if (const WorkbookResult wrong = records.ReadBegin(BOF_WORKSHEET); wrong.HasFailed())
        return wrong;
    // A chart in the sheet has a BOF and an EOF of its own.
    for (quint64 depth = 1; depth > 0;) {
        if (sheet.IsStopped())
            return {WorkbookFault::Stopped, {}};
        const auto record = records.Next();
        if (!record)
            return records.CutOff();
        if (record->type == BIFF_BOF) {
            ++depth;
        } else if (record->type == BIFF_EOF) {
            --depth;
        } else if (depth == 1) {
            if (const WorkbookResult wrong = ReadRecord(*record); wrong.HasFailed())
                return wrong;
        }
    }
    return {};
}

WorkbookResult XlsSheetReader::ReadRecord(const Record &record)
{
    switch (record.type) {
    case BIFF_DIMENSIONS:
        return CheckDimensions(record);
    case BIFF_STRING:
        return ReadAwaited(records.WithContinued(record));
    case BIFF_FORMULA:
    case BIFF_FORMULA3:
    case BIFF_FORMULA4:
    case BIFF_NUMBER:
    case BIFF_RK:
    case BIFF_MULRK:
    case BIFF_LABEL:
    case BIFF_RSTRING:
    case BIFF_LABELSST:
        break;
    default:
        return {};
    }
    const auto row = ByteReader(record.data).U16(0);
    const auto column = ByteReader(record.data).U16(2);
    if (!row || !column)
        return TooShort(record);
    awaited.reset();
    return ReadCell(record, *row, *column);
}

WorkbookResult XlsSheetReader::ReadAwaited(BiffCursor data)
{
    const auto cell = std::exchange(awaited, std::nullopt);
    return cell ? AddText(cell->first, cell->second, data.Text(sheet.texts)) : WorkbookResult();
}

/// Refuses dimensions that no sheet can have. The cells have their exact places, so nothing else is checked here.
WorkbookResult XlsSheetReader::CheckDimensions(const Record &record) const
{
    const quint32 rows = ByteReader(record.data).U32(4).value_or(0);
    const quint16 columns = ByteReader(record.data).U16(10).value_or(0);
    if (rows > MOST_XLS_ROWS || columns > MOST_XLS_COLUMNS)
        return Damaged(
            record,
            QStringLiteral("%1 rows and %2 columns are too many: an .xls sheet has at most %3 rows and %4 columns")
                .arg(rows)
                .arg(columns)
                .arg(MOST_XLS_ROWS)
                .arg(MOST_XLS_COLUMNS));
    return {};
}

/// Each cell begins with its row, column and format, 2 bytes each. The records differ in the offset of the text.
WorkbookResult XlsSheetReader::ReadCell(const Record &record, quint16 row, quint16 column)
{
    switch (record.type) {
    case BIFF_FORMULA:
    case BIFF_FORMULA3:
    case BIFF_FORMULA4:
        return ReadFormula(record, row, column);
    case BIFF_NUMBER:
        return AddNumber(row, column, Double(record.data, 6));
    case BIFF_RK:
    case BIFF_MULRK:
        return ReadNumbers(record, row, column);
    case BIFF_LABELSST:
        return ReadShared(record, row, column);
    default:
        break;
    }
    BiffCursor data = records.WithContinued(record);
    return AddText(row, column, data.Skip(6) ? data.Text(sheet.texts) : std::nullopt);
}

/// The result is a number unless its last two bytes are 0xFFFF; then its first byte is the kind of the result.
WorkbookResult XlsSheetReader::ReadFormula(const Record &record, quint16 row, quint16 column)
{
    const auto mark = ByteReader(record.data).U16(12);
    if (!mark)
        return TooShort(record);
    if (*mark != 0xFFFF)
        return AddNumber(row, column, Double(record.data, 6));
    if (record.data[6] == 0)
        awaited.emplace(row, column);
    return {};
}

/// The record of one number has a format and the number. The record of several numbers has a format and a number for
/// each of them, and then the last column.
WorkbookResult XlsSheetReader::ReadNumbers(const Record &record, quint16 row, quint16 column)
{
    const quint64 end = record.type == BIFF_RK ? 10 : quint64(record.data.size()) - 2;
    for (quint64 at = 4; at + 6 <= end; at += 6) {
        const auto packed = ByteReader(record.data).U32(at + 2);
        if (!packed)
            return TooShort(record);
        if (const WorkbookResult wrong = AddNumber(row, column++, Unpacked(*packed)); wrong.HasFailed())
            return wrong;
    }
    return {};
}

WorkbookResult XlsSheetReader::ReadShared(const Record &record, quint16 row, quint16 column)
{
    const auto index = ByteReader(record.data).U32(6);
    if (!index)
        return TooShort(record);
    if (*index >= texts.size())
        return BrokenXls(XlsPlace(row, column) +
                         QStringLiteral("text %1 of %2 is missing").arg(*index).arg(texts.size()));
    return AddText(row, column, texts[*index]);
}

WorkbookResult XlsSheetReader::AddText(quint16 row, quint16 column, std::optional<TextPool::Ref> text)
{
    if (!text)
        return BrokenXls(XlsPlace(row, column) + QStringLiteral("the text is cut off"));
    if (column >= MOST_XLS_COLUMNS)
        return BrokenXls(XlsPlace(row, column) +
                         QStringLiteral("an .xls sheet has at most %1 columns").arg(MOST_XLS_COLUMNS));
    sheet.Add(row, column, *text);
    return {};
}

WorkbookResult XlsSheetReader::AddNumber(quint16 row, quint16 column, std::optional<double> value)
{
    if (!value)
        return BrokenXls(XlsPlace(row, column) + QStringLiteral("the number is cut off"));
    const QString text = FormatFloat(*value);
    if (quint64(text.size()) > grant)
        return TooLargeForXls(XlsPlace(row, column) +
                              QStringLiteral("the numbers have more digits than a file of this size may have"));
    grant -= quint64(text.size());
    return AddText(row, column, sheet.texts.Add(text));
}
