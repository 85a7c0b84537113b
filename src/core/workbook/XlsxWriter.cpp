// SPDX-License-Identifier: MIT
#include "Formats.h"
#include "HostFiles.h"

#include "ExpatParser.h"
#include "XlsxText.h"
#include "ZipFile.h"
#include "ZipWriter.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <xlsxwriter.h>

#include <array>
#include <charconv>
#include <cstring>
#include <iterator>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace
{

// The library makes a workbook whose sheet has no cells, and the cells are written here. If the library writes them
// too, an export takes four times as long: it formats each cell with printf, writes all of them to two temporary files
// without checking whether that succeeds, and packs them at the usual level.

constexpr std::string_view NO_CELLS = "<sheetData/>"; // the library writes it where the cells belong
constexpr int HEADER_ROWS = 2;
constexpr qsizetype LONGEST_TEXT = 32'767; // UTF-16 units
constexpr double WIDTHS[] = {30, 14};      // widths of the first columns, in characters
constexpr double OTHER_WIDTH = 40;
constexpr time_t CREATED = 1577836800; // 2020-01-01, so that the same sheet gives the same bytes

WorkbookResult CheckSize(const ISheetSource &source)
{
    if (source.RowCount() > LXW_ROW_MAX)
        return {WorkbookFault::TooLarge,
                QStringLiteral("row %1: an .xlsx sheet has at most %2 rows").arg(LXW_ROW_MAX + 1).arg(LXW_ROW_MAX)};
    if (source.ColumnCount() > LXW_COL_MAX)
        return {
            WorkbookFault::TooLarge,
            QStringLiteral("column %1: an .xlsx sheet has at most %2 columns").arg(LXW_COL_MAX + 1).arg(LXW_COL_MAX)};
    return {};
}

/// The numbers of the formats of cells.
struct Formats
{
    int header = 0;
    int cell = 0;
};

/// The library's workbook, with a sheet of the size of the source that has no cells yet.
class EmptyWorkbook
{
public:
    EmptyWorkbook(const QByteArray &path, QByteArray &folder)
    {
        lxw_workbook_options options{};
        options.tmpdir = folder.data();
        workbook = workbook_new_opt(path.constData(), &options);
    }
    ~EmptyWorkbook() { lxw_workbook_free(workbook); }
    EmptyWorkbook(const EmptyWorkbook &) = delete;
    EmptyWorkbook &operator=(const EmptyWorkbook &) = delete;

    [[nodiscard]] WorkbookResult Write(const ISheetSource &source, Formats &formats)
    {
        lxw_worksheet *const sheet = workbook ? workbook_add_worksheet(workbook, "Strings") : nullptr;
        if (!sheet)
            return Result(LXW_ERROR_CREATING_TMPFILE);
        lxw_doc_properties properties{};
        properties.created = CREATED;
        workbook_set_properties(workbook, &properties);
        lxw_format *const cell = AddFormat();
        lxw_format *const header = AddFormat();
        format_set_bold(header);
        formats.header = lxw_format_get_xf_index(header);
        formats.cell = lxw_format_get_xf_index(cell);
        worksheet_freeze_panes(sheet, HEADER_ROWS, 0);
        // Empty cells need the format too, so that what a user types into them stays a text.
        for (int column = 0; column < source.ColumnCount(); ++column)
            worksheet_set_column(sheet, lxw_col_t(column), lxw_col_t(column),
                                 column < int(std::size(WIDTHS)) ? WIDTHS[column] : OTHER_WIDTH, cell);
        if (source.RowCount() > 0 && source.ColumnCount() > 0) {
            sheet->dim_rowmin = 0;
            sheet->dim_colmin = 0;
            sheet->dim_rowmax = lxw_row_t(source.RowCount() - 1);
            sheet->dim_colmax = lxw_col_t(source.ColumnCount() - 1);
        }
        return Result(workbook_close(std::exchange(workbook, nullptr)));
    }

private:
    static WorkbookResult Result(lxw_error error)
    {
        if (error == LXW_NO_ERROR)
            return {};
        return {WorkbookFault::CannotWrite, QString::fromUtf8(lxw_strerror(error))};
    }

    lxw_format *AddFormat()
    {
        lxw_format *const format = workbook_add_format(workbook);
        format_set_num_format(format, "@");
        format_set_text_wrap(format);
        format_set_align(format, LXW_ALIGN_VERTICAL_TOP);
        return format;
    }

    lxw_workbook *workbook = nullptr; // null after it is closed
};

/// Writes the rows of a sheet, each text into its cell. For texts that are rarely repeated that takes less memory than
/// a table of shared texts.
class RowWriter
{
public:
    RowWriter(ZipWriter &target, const Formats &formats) : zip(target)
    {
        behindPlace[0] = "\" s=\"" + std::to_string(formats.header) + "\" t=\"inlineStr\"><is><t";
        behindPlace[1] = "\" s=\"" + std::to_string(formats.cell) + "\" t=\"inlineStr\"><is><t";
    }

    [[nodiscard]] WorkbookResult Write(ISheetSource &source)
    {
        AddColumns(source.ColumnCount());
        Put("<sheetData>");
        for (qint64 row = 0; row < source.RowCount(); ++row) {
            const WorkbookResult result = WriteRow(row, source.Row(row));
            if (result.HasFailed())
                return result;
        }
        Put("</sheetData>");
        Flush();
        return {};
    }

private:
    static constexpr qsizetype ENOUGH = 64 << 10; // bytes, before they are packed
    static constexpr qsizetype MOST_CELL = MOST_XLSX_BYTES * LONGEST_TEXT + 256;

    void AddColumns(int count)
    {
        for (int column = 0; column < count; ++column) {
            char letters[LXW_MAX_COL_NAME_LENGTH];
            lxw_col_to_name(letters, lxw_col_t(column), 0);
            beforePlace.push_back(std::string("<c r=\"") + letters);
        }
    }

    WorkbookResult WriteRow(qint64 row, std::span<const QStringView> texts)
    {
        char digits[20];
        const std::string_view number(digits, size_t(std::to_chars(digits, std::end(digits), row + 1).ptr - digits));
        bool isOpen = false;
        for (size_t column = 0; column < texts.size(); ++column) {
            const QStringView text = texts[column];
            if (text.isEmpty())
                continue;
            if (text.size() > LONGEST_TEXT)
                return {WorkbookFault::TooLarge,
                        QStringLiteral(
                            "row %1, column %2: the text has %3 characters, but an .xlsx cell has room for %4 only")
                            .arg(row + 1)
                            .arg(column + 1)
                            .arg(text.size())
                            .arg(LONGEST_TEXT)};
            if (end - buffer.get() > ENOUGH)
                Flush();
            if (!std::exchange(isOpen, true)) {
                Put("<row r=\"");
                Put(number);
                Put("\">");
            }
            Put(beforePlace[column]);
            Put(number);
            Put(behindPlace[row < HEADER_ROWS ? 0 : 1]);
            Put(IsBlank(text.front()) || IsBlank(text.back()) ? " xml:space=\"preserve\">" : ">");
            end = PutXlsxText(end, text);
            Put("</t></is></c>");
        }
        if (isOpen)
            Put("</row>");
        return {};
    }

    static bool IsBlank(QChar c) { return c == u' ' || c == u'\t' || c == u'\n'; }

    /// The caller must ensure that there is room.
    void Put(std::string_view piece) { end = std::copy(piece.begin(), piece.end(), end); }

    void Flush()
    {
        zip.Write({buffer.get(), end - buffer.get()});
        end = buffer.get();
    }

    ZipWriter &zip;
    std::unique_ptr<char[]> buffer{new char[ENOUGH + MOST_CELL]};
    char *end = buffer.get();
    std::vector<std::string> beforePlace;   // the start of a cell in each column, up to its row
    std::array<std::string, 2> behindPlace; // what follows the row: in the header, in the other rows
};

/// Reads a part of the library's workbook. It must be complete XML: a part that was cut off before it was packed has
/// the right checksum.
WorkbookResult ReadPart(const ZipFile &zip, const QByteArray &name, QByteArray &part)
{
    const WorkbookResult unpacked = zip.Read(name, [&part](QByteArrayView piece) {
        part.append(piece);
        return true;
    });
    if (unpacked.HasFailed())
        return unpacked;
    const ExpatParser parser;
    if (XML_Parse(parser, part.constData(), int(part.size()), /*isFinal=*/1) != XML_STATUS_OK)
        return {WorkbookFault::Broken, QString::fromUtf8(name) + QStringLiteral(" is incomplete")};
    return {};
}

/// Copies the library's workbook and puts the rows of the source into it.
WorkbookResult FillWorkbook(QByteArrayView empty, const Formats &formats, ISheetSource &source, ZipWriter &filled,
                            bool &isDamaged)
{
    ZipFile zip;
    WorkbookResult result = zip.Open(empty);
    isDamaged = result.HasFailed();
    int places = 0; // for the cells
    for (const QByteArray &name : isDamaged ? QList<QByteArray>() : zip.Names()) {
        QByteArray part;
        result = ReadPart(zip, name, part);
        const qsizetype cells = part.indexOf(QByteArrayView(NO_CELLS.data(), qsizetype(NO_CELLS.size())));
        isDamaged = result.HasFailed();
        if (isDamaged)
            break;
        filled.Begin(name);
        filled.Write(QByteArrayView(part).first(cells < 0 ? part.size() : cells));
        if (cells >= 0) {
            ++places;
            result = RowWriter(filled, formats).Write(source);
            if (result.HasFailed())
                break;
            filled.Write(QByteArrayView(part).sliced(cells + qsizetype(NO_CELLS.size())));
        }
        filled.End();
    }
    if (!result.HasFailed() && places != 1) {
        isDamaged = true;
        result = {WorkbookFault::Broken, QStringLiteral("it has %1 places for the cells").arg(places)};
    }
    return result;
}

} // namespace

WorkbookResult WriteXlsx(ISheetSource &source, std::FILE *file)
{
    const WorkbookResult tooLarge = CheckSize(source);
    if (tooLarge.HasFailed())
        return tooLarge;
    const QTemporaryDir folder;
    if (!folder.isValid())
        return {WorkbookFault::CannotWrite, folder.errorString()};
    const QString path = folder.filePath(QStringLiteral("workbook.xlsx"));
    QByteArray folderName = QFile::encodeName(folder.path());
    Formats formats;
    WorkbookResult result = EmptyWorkbook(QFile::encodeName(path), folderName).Write(source, formats);
    if (result.HasFailed())
        return result;
    QByteArray empty;
    if (const int error = ReadFile(path, empty))
        return {WorkbookFault::CannotWrite, QString::fromLocal8Bit(std::strerror(error))};
    ZipWriter filled;
    // The library doesn't check whether its writes to temporary files succeed: after a failed write a part of the
    // workbook is missing, and the library reports no error.
    bool isDamaged = false;
    result = FillWorkbook(empty, formats, source, filled, isDamaged);
    if (isDamaged)
        return {
            WorkbookFault::CannotWrite,
            QStringLiteral(
                "the new workbook was damaged while it was written (%1), so the file was not changed. Temporary files "
                "are created in %2: check whether its disk is full or broken, or set TMPDIR to another folder")
                .arg(result.reason, QDir::tempPath())};
    if (result.HasFailed())
        return result;
    if (!filled.Finish(file))
        return {WorkbookFault::TooLarge, QStringLiteral("the sheet takes 4 GiB or more, or more than the memory")};
    return {};
}
