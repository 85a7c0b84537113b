#include "Biff.h"
#include "BiffReader.h"
#include "ByteReader.h"
#include "CompoundFile.h"
#include "Formats.h"
#include "IdNames.h"
#include "XlsFault.h"

#include <bit>
#include <utility>

namespace
{

/// How many characters numbers may become. Texts can't be much larger than the file, but 6 bytes of it can be a number
/// of 300 digits. It grows with the file, so that no ordinary one is refused.
constexpr quint64 FIXED_GRANT = 16 << 20;
constexpr quint64 GRANT_BY_BYTE = 3;

enum class SheetKind : quint8
{
    Worksheet = 0,
};

/// One reading of a workbook's stream: what holds for all sheets first, then the first worksheet.
class XlsParser
{
public:
    XlsParser(QByteArrayView view, Sheet &result)
        : stream(view), sheet(result), grant(FIXED_GRANT + GRANT_BY_BYTE * quint64(view.size()))
    {
    }

    [[nodiscard]] WorkbookResult Parse();

private:
    using Record = BiffReader::Record;

    [[nodiscard]] WorkbookResult ReadGlobals();
    [[nodiscard]] WorkbookResult ReadGlobal(BiffReader &records, const Record &record);
    [[nodiscard]] WorkbookResult ReadBoundSheet(const Record &record);
    [[nodiscard]] WorkbookResult ReadTexts(BiffCursor data);
    [[nodiscard]] WorkbookResult ReadSheet();
    [[nodiscard]] WorkbookResult ReadSheetRecord(BiffReader &records, const Record &record);
    [[nodiscard]] WorkbookResult CheckDimensions(const Record &record) const;
    [[nodiscard]] WorkbookResult ReadAwaited(BiffCursor data);
    [[nodiscard]] WorkbookResult ReadCell(const Record &record, BiffReader &records, quint16 row, quint16 column);
    [[nodiscard]] WorkbookResult ReadFormula(const Record &record, quint16 row, quint16 column);
    [[nodiscard]] WorkbookResult ReadNumbers(const Record &record, quint16 row, quint16 column);
    [[nodiscard]] WorkbookResult ReadShared(const Record &record, quint16 row, quint16 column);
    [[nodiscard]] WorkbookResult AddText(quint16 row, quint16 column, std::optional<QString> text);
    [[nodiscard]] WorkbookResult AddNumber(quint16 row, quint16 column, std::optional<double> value);

    /// The first record of a part of the stream.
    [[nodiscard]] WorkbookResult ReadBegin(BiffReader &records, quint16 kind) const;
    [[nodiscard]] WorkbookResult CutOff(const BiffReader &records) const;

    QByteArrayView stream;
    Sheet &sheet;
    quint64 grant;
    std::vector<QString> texts; // that cells share
    std::optional<quint32> sheetAt;
    std::optional<std::pair<quint16, quint16>> awaited; // the formula whose text comes in a record of its own
};

WorkbookResult Damaged(const BiffReader::Record &record, const QString &what)
{
    return BrokenXls(QStringLiteral("record 0x%1 at 0x%2: %3").arg(record.type, 0, 16).arg(record.at, 0, 16).arg(what));
}

WorkbookResult TooShort(const BiffReader::Record &record)
{
    return Damaged(record, QStringLiteral("%1 bytes are too few").arg(record.data.size()));
}

std::optional<double> Double(QByteArrayView bytes, quint64 at)
{
    const auto low = ByteReader(bytes).U32(at);
    const auto high = ByteReader(bytes).U32(at + 4);
    if (!low || !high)
        return std::nullopt;
    return std::bit_cast<double>(quint64(*high) << 32 | *low);
}

/// A number in 4 bytes: the upper 30 bits of a double or a whole number of 30 bits, either of them perhaps times 100.
double Unpacked(quint32 packed)
{
    const double value =
        packed & 2 ? double(qint32(packed) >> 2) : std::bit_cast<double>(quint64(packed & ~quint32(3)) << 32);
    return packed & 1 ? value / 100 : value;
}

WorkbookResult XlsParser::Parse()
{
    if (const WorkbookResult wrong = ReadGlobals(); wrong.HasFailed())
        return wrong;
    return ReadSheet();
}

WorkbookResult XlsParser::CutOff(const BiffReader &records) const
{
    return BrokenXls(QStringLiteral("the stream of %1 bytes is cut off in the record at 0x%2")
                         .arg(stream.size())
                         .arg(records.At(), 0, 16));
}

WorkbookResult XlsParser::ReadBegin(BiffReader &records, quint16 kind) const
{
    const auto record = records.Next();
    if (!record)
        return CutOff(records);
    const auto version = ByteReader(record->data).U16(0);
    const auto found = ByteReader(record->data).U16(2);
    if (record->type != BIFF_BOF || !found)
        return Damaged(*record, QStringLiteral("a BOF was expected"));
    if (*version != BIFF8)
        return NoXls(QStringLiteral("it is of version 0x%1 (Excel 97-2003 has 0x600)").arg(*version, 0, 16));
    if (*found != kind)
        return Damaged(*record, QStringLiteral("a BOF of kind %1 was expected, not %2").arg(kind).arg(*found));
    return {};
}

WorkbookResult XlsParser::ReadGlobals()
{
    BiffReader records(stream);
    if (const WorkbookResult wrong = ReadBegin(records, BOF_GLOBALS); wrong.HasFailed())
        return wrong;
    for (;;) {
        const auto record = records.Next();
        if (!record)
            return CutOff(records);
        if (record->type == BIFF_EOF)
            return {};
        if (const WorkbookResult wrong = ReadGlobal(records, *record); wrong.HasFailed())
            return wrong;
    }
}

WorkbookResult XlsParser::ReadGlobal(BiffReader &records, const Record &record)
{
    switch (record.type) {
    case BIFF_FILEPASS:
        return NoXls(QStringLiteral("it is protected by a password"));
    case BIFF_BOUNDSHEET:
        return ReadBoundSheet(record);
    case BIFF_SST:
        return ReadTexts(records.WithContinued(record));
    default:
        return {};
    }
}

WorkbookResult XlsParser::ReadBoundSheet(const Record &record)
{
    const auto at = ByteReader(record.data).U32(0);
    const auto flags = ByteReader(record.data).U16(4); // how it is hidden, and its kind
    if (!at || !flags)
        return TooShort(record);
    if (!sheetAt && SheetKind(*flags >> 8) == SheetKind::Worksheet)
        sheetAt = at;
    return {};
}

WorkbookResult XlsParser::ReadTexts(BiffCursor data)
{
    const bool hasTotal = data.U32().has_value(); // how often the texts are used
    const auto count = data.U32();
    if (!hasTotal || !count)
        return BrokenXls(QStringLiteral("the table of texts has no count"));
    texts.clear();
    for (quint32 i = 0; i < *count; ++i) {
        std::optional<QString> text = data.Text();
        if (!text)
            return BrokenXls(QStringLiteral("the table of texts ends within text %1 of %2").arg(i + 1).arg(*count));
        texts.push_back(std::move(*text));
    }
    return {};
}

WorkbookResult XlsParser::ReadSheet()
{
    if (!sheetAt)
        return NoXls(QStringLiteral("it has no worksheet"));
    BiffReader records(stream, *sheetAt);
    if (const WorkbookResult wrong = ReadBegin(records, BOF_WORKSHEET); wrong.HasFailed())
        return wrong;
    // A chart in the sheet has a BOF and an EOF of its own.
    for (quint64 depth = 1; depth > 0;) {
        const auto record = records.Next();
        if (!record)
            return CutOff(records);
        if (record->type == BIFF_BOF)
            ++depth;
        else if (record->type == BIFF_EOF)
            --depth;
        else if (depth == 1)
            if (const WorkbookResult wrong = ReadSheetRecord(records, *record); wrong.HasFailed())
                return wrong;
    }
    return {};
}

WorkbookResult XlsParser::ReadSheetRecord(BiffReader &records, const Record &record)
{
    switch (record.type) {
    case BIFF_DIMENSIONS:
        return CheckDimensions(record);
    case BIFF_STRING:
        return ReadAwaited(records.WithContinued(record));
    case BIFF_FORMULA:
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
    return ReadCell(record, records, *row, *column);
}

WorkbookResult XlsParser::ReadAwaited(BiffCursor data)
{
    const auto cell = std::exchange(awaited, std::nullopt);
    return cell ? AddText(cell->first, cell->second, data.Text()) : WorkbookResult();
}

/// The cells say more exactly where they are; this only catches claims that nothing can come up to.
WorkbookResult XlsParser::CheckDimensions(const Record &record) const
{
    const auto rows = ByteReader(record.data).U32(4);
    const auto columns = ByteReader(record.data).U16(10);
    if (!rows || !columns)
        return TooShort(record);
    if (*rows > MOST_XLS_ROWS || *columns > MOST_XLS_COLUMNS)
        return Damaged(record, QStringLiteral("%1 rows and %2 columns: an .xls sheet has %3 and %4")
                                   .arg(*rows)
                                   .arg(*columns)
                                   .arg(MOST_XLS_ROWS)
                                   .arg(MOST_XLS_COLUMNS));
    return {};
}

/// Row, column and format come first in every cell, 2 bytes each; of these only where texts begin is told below.
WorkbookResult XlsParser::ReadCell(const Record &record, BiffReader &records, quint16 row, quint16 column)
{
    switch (record.type) {
    case BIFF_FORMULA:
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
    return AddText(row, column, data.Skip(6) ? data.Text() : std::nullopt);
}

/// The result is a number, or something else when its last two bytes are 0xFFFF; then the first one tells what.
WorkbookResult XlsParser::ReadFormula(const Record &record, quint16 row, quint16 column)
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

/// The record of one number has a format and a number; that of many has as many of these as there are, and the last
/// column.
WorkbookResult XlsParser::ReadNumbers(const Record &record, quint16 row, quint16 column)
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

WorkbookResult XlsParser::ReadShared(const Record &record, quint16 row, quint16 column)
{
    const auto index = ByteReader(record.data).U32(6);
    if (!index)
        return TooShort(record);
    if (*index >= texts.size())
        return BrokenXls(XlsPlace(row, column) +
                         QStringLiteral("text %1 of %2 isn't there").arg(*index).arg(texts.size()));
    return AddText(row, column, texts[*index]);
}

WorkbookResult XlsParser::AddText(quint16 row, quint16 column, std::optional<QString> text)
{
    if (!text)
        return BrokenXls(XlsPlace(row, column) + QStringLiteral("the text is cut off"));
    if (column >= MOST_XLS_COLUMNS)
        return BrokenXls(XlsPlace(row, column) + QStringLiteral("an .xls sheet has %1 columns").arg(MOST_XLS_COLUMNS));
    sheet.Add(row, column, std::move(*text));
    return {};
}

WorkbookResult XlsParser::AddNumber(quint16 row, quint16 column, std::optional<double> value)
{
    if (!value)
        return BrokenXls(XlsPlace(row, column) + QStringLiteral("the number is cut off"));
    QString text = FormatFloat(*value);
    if (quint64(text.size()) > grant)
        return TooLargeForXls(XlsPlace(row, column) +
                              QStringLiteral("the numbers have more digits than a file of this size is granted"));
    grant -= quint64(text.size());
    return AddText(row, column, std::move(text));
}

} // namespace

WorkbookResult ReadXls(QByteArrayView file, Sheet &sheet)
{
    CompoundReader container;
    if (const WorkbookResult wrong = container.Open(file); wrong.HasFailed())
        return wrong;
    if (!container.Has(u"Workbook") && container.Has(u"Book"))
        return NoXls(QStringLiteral("it is of Excel 5.0 or 95, older than Excel 97"));
    QByteArray stream;
    if (const WorkbookResult wrong = container.Read(u"Workbook", stream); wrong.HasFailed())
        return wrong;
    return XlsParser(stream, sheet).Parse();
}
