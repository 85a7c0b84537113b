// SPDX-License-Identifier: MIT
#pragma once

#include "MergeColumns.h"

/// Merges three versions of a string file, row by row and cell by cell. Rows belong together by their ID, cells by the
/// number of their language.
///
///     StringMerge merge(tables, onConflict, lineEnd);
///     if (const QString refusal = merge.Run(); !refusal.isEmpty()) ...
///     Write(merge.text);
class StringMerge
{
public:
    /// The tables must outlive this object.
    StringMerge(const MergeTables &versions, OnConflict conflict, QStringView lineEnd)
        : tables(versions), onConflict(conflict), end(lineEnd)
    {
    }

    /// Returns why the tables can't be merged; empty on success.
    [[nodiscard]] QString Run();

    QString text;          ///< the merged file
    QStringList conflicts; ///< as in MergeResult

private:
    using Cells = std::vector<QStringView>;

    [[nodiscard]] QString MatchRows();
    [[nodiscard]] bool HasFormOfMerged(MergeSide side) const;
    [[nodiscard]] bool IsKept(const MergeRow &row);
    [[nodiscard]] bool IsUnchanged(const MergeRow &row, MergeSide side);
    [[nodiscard]] bool HasEqualLines(const MergeRow &row, MergeSide one, MergeSide other) const;
    [[nodiscard]] QStringView IdOf(const MergeRow &row) const;
    void Load(const MergeRow &row, MergeSide side);
    void PutHeader();
    void PutRow(const MergeRow &row);
    [[nodiscard]] bool PutUnchangedLine(const MergeRow &row);
    void PutMergedCells(const MergeRow &row);
    void PutDeletedAndChanged(const MergeRow &row);
    [[nodiscard]] bool MergeCell(const MergeRow &row, size_t cell, QStringView &merged) const;
    void PutConflict(const QString &ours, const QString &theirs);
    void Put(QStringView body) { text.append(body).append(end); }
    [[nodiscard]] QString RowText(QStringView id, const Cells &row) const;
    [[nodiscard]] QString LanguagesLine(bool isOurs) const;
    [[nodiscard]] QString CellName(size_t cell) const;

    const MergeTables &tables;
    const OnConflict onConflict;
    const QStringView end; // of each line
    std::vector<MergeRow> rows;
    std::array<std::vector<int>, MERGE_SIDES> orders; // the indices in `rows`, in the order of each side
    std::vector<MergedColumn> columns;
    bool hasType = true;
    std::array<bool, MERGE_SIDES> isOfMergedForm{}; // the side has the columns of the merged file, in the same order
    std::array<Cells, MERGE_SIDES> cells;           // of the row that is being merged, in the order of `columns`
};
