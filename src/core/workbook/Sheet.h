#pragma once

#include "TextPool.h"

#include <span>
#include <vector>

/// The texts of one sheet that was read from a workbook. Rows and columns count from 0; a cell without text isn't kept,
/// so what a hostile file costs is bounded by what it holds.
///
///     Sheet sheet;
///     sheet.Add(row, column, text);    // in any order; of two texts of one cell the later one stays
///     sheet.Finish();
///     sheet.At(0, 1), sheet.UsedRows(), sheet.UsedColumns()
class Sheet
{
public:
    static constexpr quint32 MOST_ROWS = 1 << 20; ///< what any of the formats can address
    static constexpr quint32 MOST_COLUMNS = 1 << 14;

    struct Cell
    {
        quint32 row;
        quint32 column;
        TextPool::Ref text;
    };

    /// The sheet's name; empty where the format has none.
    QString name;
    /// What the cells' texts lie in; cells may share one.
    TextPool texts;

    /// Adds a cell; one without text or beyond what a sheet can have is left out.
    void Add(quint32 row, quint32 column, TextPool::Ref text);
    void Add(quint32 row, quint32 column, QStringView text) { Add(row, column, texts.Add(text)); }
    /// Makes what was added ready for looking it up; once, before anything below.
    void Finish();

    /// The text of a cell; empty when there is none.
    [[nodiscard]] QString At(quint32 row, quint32 column) const;
    /// How many rows, and columns, the smallest rectangle has that holds all texts.
    [[nodiscard]] quint32 UsedRows() const { return usedRows; }
    [[nodiscard]] quint32 UsedColumns() const { return usedColumns; }
    /// One behind the last row that has a text.
    [[nodiscard]] quint32 EndRow() const { return endRow; }
    /// One behind the last column of a row that has a text.
    [[nodiscard]] quint32 EndColumn(quint32 row) const;

private:
    std::vector<Cell> cells; // by row and column, once finished
    quint32 usedRows = 0;
    quint32 usedColumns = 0;
    quint32 endRow = 0;
};

/// What a sheet is written from: asked once for each row, from the first to the last.
class ISheetSource
{
public:
    virtual ~ISheetSource() = default;
    [[nodiscard]] virtual qint64 RowCount() const = 0;
    [[nodiscard]] virtual int ColumnCount() const = 0;
    /// The texts of a row, `ColumnCount()` of them at most; good until the next call.
    [[nodiscard]] virtual std::span<const QStringView> Row(qint64 row) = 0;
};
