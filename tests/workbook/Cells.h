#pragma once

#include "Formats.h"

#include <QString>

#include <map>
#include <ostream>

/// The texts of a sheet, by row and column.
using Cells = std::map<std::pair<quint32, quint32>, QString>;

inline void PrintTo(const QString &text, std::ostream *out)
{
    *out << '"' << text.left(60).toStdString() << "\" of " << text.size();
}

/// A sheet of cells to be written.
class CellSource : public ISheetSource
{
public:
    explicit CellSource(Cells table) : cells(std::move(table))
    {
        for (const auto &[place, text] : cells) {
            rows = std::max<qint64>(rows, qint64(place.first) + 1);
            columns = std::max(columns, int(place.second) + 1);
        }
    }

    [[nodiscard]] qint64 RowCount() const override { return rows; }
    [[nodiscard]] int ColumnCount() const override { return columns; }
    [[nodiscard]] std::span<const QStringView> Row(qint64 row) override
    {
        views.assign(size_t(columns), {});
        for (auto cell = cells.lower_bound({row, 0}); cell != cells.end() && cell->first.first == row; ++cell)
            views[cell->first.second] = cell->second;
        return views;
    }

    qint64 rows = 0;
    int columns = 0;

private:
    Cells cells;
    std::vector<QStringView> views;
};

/// What was read into a sheet.
inline Cells CellsOf(Sheet &sheet)
{
    Cells cells;
    sheet.Finish();
    for (quint32 row = 0; row < sheet.EndRow(); ++row) {
        for (quint32 column = 0; column < 256; ++column) {
            if (!sheet.At(row, column).isEmpty())
                cells[{row, column}] = sheet.At(row, column);
        }
    }
    return cells;
}
