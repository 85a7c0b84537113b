// SPDX-License-Identifier: MIT
#include "Formats.h"
#include "HostFiles.h"

#include "XlsxCheck.h"
#include "XlsxText.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <xlsxwriter.h>

#include <cstring>
#include <iterator>
#include <utility>

namespace
{

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

/// Writes a workbook to a file of its own. One object for each writing.
///
/// The library writes each row as soon as the next one begins, with the texts in the cells. For texts that are rarely
/// repeated that is faster and takes less memory than a table of shared texts.
class XlsxFile
{
public:
    XlsxFile(const QByteArray &path, QByteArray &folder)
    {
        lxw_workbook_options options{};
        options.constant_memory = true;
        options.tmpdir = folder.data();
        workbook = workbook_new_opt(path.constData(), &options);
    }
    ~XlsxFile()
    {
        // Only closing the workbook closes the file of the rows.
        if (workbook && sheet && sheet->optimize_tmpfile)
            fclose(sheet->optimize_tmpfile);
        lxw_workbook_free(workbook);
    }
    XlsxFile(const XlsxFile &) = delete;
    XlsxFile &operator=(const XlsxFile &) = delete;

    [[nodiscard]] WorkbookResult Write(ISheetSource &source)
    {
        WorkbookResult result = Prepare(source.ColumnCount());
        for (qint64 row = 0; row < source.RowCount() && !result.HasFailed(); ++row)
            result = WriteRow(lxw_row_t(row), source.Row(row));
        return result.HasFailed() ? result : Result(workbook_close(std::exchange(workbook, nullptr)));
    }

    /// The sum of the cells that were passed to the library.
    [[nodiscard]] const CellSum &Cells() const { return cells; }

private:
    static WorkbookResult Result(lxw_error error)
    {
        if (error == LXW_NO_ERROR)
            return {};
        return {WorkbookFault::CannotWrite, QString::fromUtf8(lxw_strerror(error))};
    }

    WorkbookResult Prepare(int columns)
    {
        sheet = workbook ? workbook_add_worksheet(workbook, "Strings") : nullptr;
        if (!sheet)
            return Result(LXW_ERROR_CREATING_TMPFILE);
        lxw_doc_properties properties{};
        properties.created = CREATED;
        workbook_set_properties(workbook, &properties);
        cell = AddFormat();
        header = AddFormat();
        format_set_bold(header);
        worksheet_freeze_panes(sheet, HEADER_ROWS, 0);
        // Empty cells need the format too, so that what a user types into them stays a text.
        for (int column = 0; column < columns; ++column)
            worksheet_set_column(sheet, lxw_col_t(column), lxw_col_t(column),
                                 column < int(std::size(WIDTHS)) ? WIDTHS[column] : OTHER_WIDTH, cell);
        return {};
    }

    lxw_format *AddFormat()
    {
        lxw_format *const format = workbook_add_format(workbook);
        format_set_num_format(format, "@");
        format_set_text_wrap(format);
        format_set_align(format, LXW_ALIGN_VERTICAL_TOP);
        return format;
    }

    WorkbookResult WriteRow(lxw_row_t row, std::span<const QStringView> texts)
    {
        for (size_t column = 0; column < texts.size(); ++column) {
            const QStringView text = texts[column];
            if (text.isEmpty())
                continue;
            const QByteArray encoded = EncodeXlsxText(text);
            lxw_error error = LXW_ERROR_MAX_STRING_LENGTH_EXCEEDED;
            if (text.size() <= LONGEST_TEXT)
                error = worksheet_write_string(sheet, row, lxw_col_t(column), encoded.constData(),
                                               row < HEADER_ROWS ? header : cell);
            if (error == LXW_ERROR_MAX_STRING_LENGTH_EXCEEDED)
                return {WorkbookFault::TooLarge,
                        QStringLiteral(
                            "row %1, column %2: the text has %3 characters, but an .xlsx cell has room for %4 only")
                            .arg(row + 1)
                            .arg(column + 1)
                            .arg(text.size())
                            .arg(LONGEST_TEXT)};
            if (error != LXW_NO_ERROR)
                return Result(error);
            char place[LXW_MAX_CELL_NAME_LENGTH];
            lxw_rowcol_to_cell(place, row, lxw_col_t(column));
            cells.Add(place, encoded);
        }
        return {};
    }

    lxw_workbook *workbook = nullptr; // null after it is closed
    lxw_worksheet *sheet = nullptr;
    lxw_format *cell = nullptr;
    lxw_format *header = nullptr;
    CellSum cells;
};

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
    XlsxFile xlsx(QFile::encodeName(path), folderName);
    const WorkbookResult result = xlsx.Write(source);
    if (result.HasFailed())
        return result;
    QByteArray bytes;
    if (const int error = ReadFile(path, bytes))
        return {WorkbookFault::CannotWrite, QString::fromLocal8Bit(std::strerror(error))};
    // The library doesn't check whether its writes to temporary files succeed: after a failed write a part of the
    // workbook is missing, and the library reports no error.
    if (const WorkbookResult damaged = CheckXlsx(bytes, xlsx.Cells()); damaged.HasFailed())
        return {
            WorkbookFault::CannotWrite,
            QStringLiteral(
                "the new workbook was damaged while it was written (%1), so the file was not changed. Temporary files "
                "are created in %2: check whether its disk is full or broken, or set TMPDIR to another folder")
                .arg(damaged.reason, QDir::tempPath())};
    std::fwrite(bytes.data(), 1, size_t(bytes.size()), file);
    return {};
}
