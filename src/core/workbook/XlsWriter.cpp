// SPDX-License-Identifier: MIT
#include "BiffWriter.h"
#include "CompoundFile.h"
#include "Formats.h"
#include "XlsFault.h"
#include "XlsTextTable.h"

#include <algorithm>

namespace
{

constexpr int HEADER_ROWS = 2;

// The formats of cells. Programs expect the formats of styles first, and number 15 as the format of a cell without one.
constexpr int STYLE_FORMATS = 15;
constexpr quint16 FORMAT_NONE = 15;
constexpr quint16 FORMAT_TEXT = 16;
constexpr quint16 FORMAT_HEADER = 17;

constexpr quint16 LINE_HEIGHT = 255; // in 1/20 points, for a font of 10 points

constexpr quint16 FONT_NORMAL = 0;
constexpr quint16 FONT_BOLD = 1;

constexpr QByteArrayView SHEET_NAME("Strings");

void WriteBegin(BiffWriter &writer, quint16 kind)
{
    constexpr quint16 BUILD = 3515;
    constexpr quint16 YEAR = 1996;
    writer.Begin(BIFF_BOF).Add<quint16>(BIFF8, kind, BUILD, YEAR).Add<quint32>(0x41, BIFF8);
}

void WriteFont(BiffWriter &writer, quint16 weight)
{
    constexpr QByteArrayView NAME("Arial");
    constexpr quint16 HEIGHT = 10 * 20;
    constexpr quint16 AUTOMATIC_COLOR = 0x7FFF;
    writer.Begin(BIFF_FONT).Add<quint16>(HEIGHT, 0, AUTOMATIC_COLOR, weight, 0).Add<quint8>(0, 0, 0, 0);
    writer.Add<quint8>(NAME.size(), 0).Add(NAME);
}

void WriteFormat(BiffWriter &writer, quint16 font, quint16 numberFormat, quint16 kind, quint8 alignment, quint8 used)
{
    constexpr quint16 NO_FILL = 0x20C0;
    writer.Begin(BIFF_XF).Add<quint16>(font, numberFormat, kind).Add<quint8>(alignment, 0, 0, used);
    writer.Add<quint32>(0, 0).Add<quint16>(NO_FILL);
}

void WriteFormats(BiffWriter &writer)
{
    constexpr quint16 GENERAL = 0;
    constexpr quint16 TEXT = 49; // typed text stays unchanged, and "=1" isn't a formula
    constexpr quint16 STYLE = 0xFFF5;
    constexpr quint16 CELL = 0x0001;
    constexpr quint8 BOTTOM = 0x20;
    constexpr quint8 TOP_WRAPPED = 0x08;
    constexpr quint8 USES_NUMBER_AND_ALIGNMENT = 0x14;
    constexpr quint8 USES_FONT_TOO = 0x1C;
    WriteFont(writer, 400);
    WriteFont(writer, 700);
    for (int i = 0; i < STYLE_FORMATS; ++i)
        WriteFormat(writer, FONT_NORMAL, GENERAL, STYLE, BOTTOM, i == 0 ? 0 : 0xF4);
    WriteFormat(writer, FONT_NORMAL, GENERAL, CELL, BOTTOM, 0);
    WriteFormat(writer, FONT_NORMAL, TEXT, CELL, TOP_WRAPPED, USES_NUMBER_AND_ALIGNMENT);
    WriteFormat(writer, FONT_BOLD, TEXT, CELL, TOP_WRAPPED, USES_FONT_TOO);
    writer.Begin(BIFF_STYLE).Add<quint16>(0x8000).Add<quint8>(0, 0xFF); // "Normal"
}

/// Writes the records for the whole workbook. The sheet begins at `sheetAt`.
void WriteGlobals(BiffWriter &writer, qsizetype sheetAt, const XlsTextTable &texts)
{
    constexpr quint16 UTF16 = 1200;
    WriteBegin(writer, BOF_GLOBALS);
    writer.Begin(BIFF_CODEPAGE).Add<quint16>(UTF16);
    writer.Begin(BIFF_WINDOW1).Add<quint16>(0, 0, 0x4000, 0x2000, 0x38, 0, 0, 1, 600);
    WriteFormats(writer);
    writer.Begin(BIFF_BOUNDSHEET).Add<quint32>(sheetAt).Add<quint16>(0);
    writer.Add<quint8>(SHEET_NAME.size(), 0).Add(SHEET_NAME);
    texts.Write(writer);
    writer.Begin(BIFF_EOF);
    writer.Flush();
}

/// Returns the width of a column in characters. Column 0 has the names of IDs, column 1 the types, the others texts.
qsizetype WidthOf(size_t column)
{
    return column == 0 ? 30 : column == 1 ? 14 : 40;
}

/// Writes the columns. Their format is used for cells into which a user types later.
void WriteColumns(BiffWriter &writer, int columns)
{
    for (int column = 0; column < columns; ++column)
        writer.Begin(BIFF_COLINFO).Add<quint16>(column, column, WidthOf(size_t(column)) * 256, FORMAT_TEXT, 0, 0);
}

/// Estimates how many lines a text takes. An East Asian character is as wide as two others.
qsizetype LinesOf(QStringView text, qsizetype width)
{
    constexpr char16_t FIRST_OF_EAST_ASIA = 0x2E80;
    qsizetype lines = 0;
    qsizetype used = 0;
    for (const QChar c : text) {
        const qsizetype wide = c.unicode() < FIRST_OF_EAST_ASIA || c.isSurrogate() ? 1 : 2;
        if (c == u'\n' || used + wide > width) {
            ++lines;
            used = 0;
        }
        used += c == u'\n' ? 0 : wide;
    }
    return lines + 1;
}

/// Writes the height of a row. A row whose cells need only one line has no record. Programs that lay out wrapped text
/// again still do so.
void WriteHeight(BiffWriter &writer, qint64 row, std::span<const QStringView> cells)
{
    constexpr qsizetype MOST_LINES = 32; // Excel's rows have at most 409 points
    constexpr quint16 MUST_BE_SET = 0x0100;
    qsizetype lines = 1;
    for (size_t column = 0; column < cells.size(); ++column)
        lines = std::max(lines, LinesOf(cells[column], WidthOf(column)));
    if (lines > 1)
        writer.Begin(BIFF_ROW).Add<quint16>(row, 0, cells.size(), LINE_HEIGHT * std::min(lines, MOST_LINES), 0, 0,
                                            MUST_BE_SET, FORMAT_NONE);
}

/// Makes the header stay visible while the rows below it are scrolled.
void WriteView(BiffWriter &writer)
{
    constexpr quint16 USUAL_AND_FROZEN = 0x07BE;
    constexpr quint32 BLACK = 64;
    constexpr quint8 LOWER_PANE = 2;
    writer.Begin(BIFF_WINDOW2).Add<quint16>(USUAL_AND_FROZEN, 0, 0).Add<quint32>(BLACK).Add<quint16>(0, 0);
    writer.Add<quint32>(0);
    writer.Begin(BIFF_PANE).Add<quint16>(0, HEADER_ROWS, HEADER_ROWS, 0).Add<quint8>(LOWER_PANE, 0);
    writer.Begin(BIFF_SELECTION).Add<quint8>(LOWER_PANE).Add<quint16>(HEADER_ROWS, 0, 0, 1);
    writer.Add<quint16>(HEADER_ROWS, HEADER_ROWS).Add<quint8>(0, 0);
}

WorkbookResult WriteRow(BiffWriter &writer, XlsTextTable &texts, qint64 row, std::span<const QStringView> cells)
{
    WriteHeight(writer, row, cells);
    for (size_t column = 0; column < cells.size(); ++column) {
        const QStringView text = cells[column];
        if (text.size() > LONGEST_XLS_TEXT)
            return TooLargeForXls(XlsPlace(quint64(row), column) +
                                  QStringLiteral("a text has %1 characters, but an .xls cell has room for %2 only")
                                      .arg(text.size())
                                      .arg(LONGEST_XLS_TEXT));
        if (text.isEmpty())
            continue;
        writer.Begin(BIFF_LABELSST).Add<quint16>(row, column, row < HEADER_ROWS ? FORMAT_HEADER : FORMAT_TEXT);
        writer.Add<quint32>(texts.NumberOf(text));
    }
    return {};
}

WorkbookResult WriteSheet(BiffWriter &writer, XlsTextTable &texts, ISheetSource &source)
{
    const qint64 rows = source.RowCount();
    const int columns = source.ColumnCount();
    WriteBegin(writer, BOF_WORKSHEET);
    writer.Begin(BIFF_DEFAULTROWHEIGHT).Add<quint16>(0, LINE_HEIGHT);
    WriteColumns(writer, columns);
    writer.Begin(BIFF_DIMENSIONS).Add<quint32>(0, rows).Add<quint16>(0, columns, 0);
    for (qint64 row = 0; row < rows; ++row) {
        const auto cells = source.Row(row);
        const auto wrong = WriteRow(writer, texts, row, cells.first(std::min(cells.size(), size_t(columns))));
        if (wrong.HasFailed())
            return wrong;
    }
    WriteView(writer);
    writer.Begin(BIFF_EOF);
    writer.Flush();
    return {};
}

} // namespace

WorkbookResult WriteXls(ISheetSource &source, std::FILE *file)
{
    const qint64 rows = source.RowCount();
    const int columns = source.ColumnCount();
    if (rows > MOST_XLS_ROWS)
        return TooLargeForXls(QStringLiteral("row %1: an .xls sheet has at most %2 rows, but %3 are needed")
                                  .arg(MOST_XLS_ROWS + 1)
                                  .arg(MOST_XLS_ROWS)
                                  .arg(rows));
    if (columns > int(MOST_XLS_COLUMNS))
        return TooLargeForXls(QStringLiteral("column %1: an .xls sheet has at most %2 columns, but %3 are needed")
                                  .arg(MOST_XLS_COLUMNS + 1)
                                  .arg(MOST_XLS_COLUMNS)
                                  .arg(columns));
    XlsTextTable texts;
    QByteArray sheet;
    BiffWriter sheetWriter([&sheet](QByteArrayView piece) { sheet += piece; });
    if (const WorkbookResult wrong = WriteSheet(sheetWriter, texts, source); wrong.HasFailed())
        return wrong;
    texts.Close();

    // The globals contain the offset of the sheet, which is after them, so their size is measured first.
    qsizetype sheetAt = 0;
    BiffWriter measure([&sheetAt](QByteArrayView piece) { sheetAt += piece.size(); });
    WriteGlobals(measure, 0, texts);
    CompoundWriter container("Workbook", file);
    BiffWriter globals([&container](QByteArrayView piece) { container.Write(piece); });
    WriteGlobals(globals, sheetAt, texts);
    container.Write(sheet);
    return container.Close();
}
