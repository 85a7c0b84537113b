// SPDX-License-Identifier: MIT
#pragma once

#include "TextPool.h"

#include <atomic>
#include <span>
#include <vector>

/// The texts of a sheet that was read from a workbook. Row and column numbers are from 0. A cell without a text isn't
/// stored, so the memory that a hostile file takes is limited by its content.
///
///     Sheet sheet;
///     sheet.Add(row, column, text);    // in any order; a later text of the same cell replaces the earlier one
///     sheet.Finish();
///     sheet.At(0, 1), sheet.UsedRows(), sheet.UsedColumns()
class Sheet
{
public:
    static constexpr quint32 MOST_ROWS = 1 << 20; ///< the largest limits of all formats
    static constexpr quint32 MOST_COLUMNS = 1 << 14;

    struct Cell
    {
        quint32 row;
        quint32 column;
        TextPool::Ref text;
    };

    /// Which sheet of a workbook is read: its name, or its number from 1; empty for the first one. Set it before
    /// reading.
    QString wanted;
    /// When another thread makes this true, the reading soon fails with WorkbookFault::Stopped. Null: it can't be
    /// stopped. Set it before reading.
    const std::atomic<bool> *stop = nullptr;
    /// The sheet's name; empty if the format has none.
    QString name;
    /// The last row, from 1, if the file ends within it: it has no line end and fewer fields than row 2. 0 otherwise.
    int cutRow = 0;
    /// Contains the texts of the cells; cells may share a text.
    TextPool texts;

    /// Returns whether the reading must end now.
    [[nodiscard]] bool IsStopped() const { return stop && *stop; }
    /// Adds a cell. Ignores a cell without a text, and a cell outside of the limits of a sheet.
    void Add(quint32 row, quint32 column, TextPool::Ref text);
    void Add(quint32 row, quint32 column, QStringView text) { Add(row, column, texts.Add(text)); }
    /// Prepares the cells for look-ups. Call it once, before the functions below.
    void Finish();

    /// Returns the text of a cell; empty when it has none.
    [[nodiscard]] QString At(quint32 row, quint32 column) const { return texts.Text(RefAt(row, column)); }
    /// Returns whether `text` is the text of a cell. Faster than `At`.
    [[nodiscard]] bool HasText(quint32 row, quint32 column, QStringView text) const
    {
        return texts.IsText(RefAt(row, column), text);
    }
    /// The numbers of rows and columns of the smallest rectangle that contains all texts.
    [[nodiscard]] quint32 UsedRows() const { return usedRows; }
    [[nodiscard]] quint32 UsedColumns() const { return usedColumns; }
    /// The number of the last row with a text, plus one.
    [[nodiscard]] quint32 EndRow() const { return endRow; }
    /// Returns the number of the last column with a text in a row, plus one.
    [[nodiscard]] quint32 EndColumn(quint32 row) const;

private:
    [[nodiscard]] std::span<const Cell> CellsOf(quint32 row) const;
    [[nodiscard]] TextPool::Ref RefAt(quint32 row, quint32 column) const;

    std::vector<Cell> cells;        // sorted by row and column after Finish
    std::vector<quint32> rowStarts; // for each row, its first cell; a last one for the end
    quint32 usedRows = 0;
    quint32 usedColumns = 0;
    quint32 endRow = 0;
};

/// The source from which a sheet is written. Row is called once for each row, from the first to the last.
class ISheetSource
{
public:
    virtual ~ISheetSource() = default;
    [[nodiscard]] virtual qint64 RowCount() const = 0;
    [[nodiscard]] virtual int ColumnCount() const = 0;
    /// Returns the texts of a row, at most `ColumnCount()`. They are valid until the next call.
    [[nodiscard]] virtual std::span<const QStringView> Row(qint64 row) = 0;
};
