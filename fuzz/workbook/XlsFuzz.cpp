// An .xls file, or the stream in one when the signature of the container is missing. Reads it, writes what was read and
// reads that; aborts when it isn't the same table.
#include "CompoundFile.h"
#include "Formats.h"

#include <cstdlib>

namespace
{

void Require(bool condition)
{
    if (!condition)
        std::abort();
}

class SheetSource : public ISheetSource
{
public:
    explicit SheetSource(const Sheet &table) : sheet(table) {}

    [[nodiscard]] qint64 RowCount() const override { return sheet.EndRow(); }
    [[nodiscard]] int ColumnCount() const override { return int(texts.size()); }
    [[nodiscard]] std::span<const QStringView> Row(qint64 row) override
    {
        for (size_t column = 0; column < texts.size(); ++column)
            texts[column] = sheet.At(quint32(row), quint32(column));
        return texts;
    }

private:
    const Sheet &sheet;
    std::vector<QStringView> texts = std::vector<QStringView>(256);
};

void CheckRoundTrip(const Sheet &sheet)
{
    SheetSource source(sheet);
    QByteArray written;
    const WorkbookResult result = WriteXls(source, written);
    Require(result.fault == WorkbookFault::None || result.fault == WorkbookFault::TooLarge); // a text too long
    if (result.HasFailed())
        return;
    Sheet again;
    Require(!ReadXls(written, again).HasFailed());
    again.Finish();
    Require(again.UsedRows() == sheet.UsedRows() && again.UsedColumns() == sheet.UsedColumns());
    SheetSource other(again);
    for (qint64 row = 0; row < source.RowCount(); ++row) {
        const auto texts = source.Row(row);
        Require(std::equal(texts.begin(), texts.end(), other.Row(row).begin()));
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (size > 256 * 1024)
        return 0;
    QByteArray file(reinterpret_cast<const char *>(data), qsizetype(size));
    if (!file.startsWith("\xD0\xCF\x11\xE0"))
        Require(!WriteCompoundFile("Workbook", {QByteArray(file)}, file).HasFailed());
    Sheet sheet;
    const WorkbookResult result = ReadXls(file, sheet);
    Require(result.HasFailed() != result.reason.isEmpty());
    sheet.Finish();
    constexpr quint32 FEW_ROWS = 100; // so that most of the time isn't spent on empty ones
    if (!result.HasFailed() && sheet.EndRow() < FEW_ROWS)
        CheckRoundTrip(sheet);
    return 0;
}
