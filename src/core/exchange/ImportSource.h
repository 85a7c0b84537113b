// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// Where a text is in the file that it was read from.
struct ImportPlace
{
    QString name; ///< as a list shows it: "C5", "de.po:12"
    QString file; ///< its absolute path; empty if it is the only file of the import
    int line = 0; ///< from 1
};

/// The texts that an import reads, by their row and column in the file; both are from 0.
class IImportSource
{
public:
    virtual ~IImportSource() = default;
    /// Returns the ID of a row's string; empty when it has none.
    [[nodiscard]] virtual QString Id(quint32 row) const = 0;
    /// Returns the text of a cell; empty when it has none.
    [[nodiscard]] virtual QString Text(quint32 row, quint32 column) const = 0;
    /// Returns whether `text` is the text of a cell. Faster than `Text` for some sources.
    [[nodiscard]] virtual bool HasText(quint32 row, quint32 column, QStringView text) const
    {
        return Text(row, column) == text;
    }
    /// Returns the number of the last column with a text in a row, plus one.
    [[nodiscard]] virtual quint32 EndColumn(quint32 row) const = 0;
    [[nodiscard]] virtual ImportPlace PlaceOf(quint32 row, quint32 column) const = 0;

    /// Returns whether the file has such a cell, which may be empty. What it doesn't have isn't imported.
    [[nodiscard]] virtual bool HasCell(quint32 /*row*/, quint32 /*column*/) const { return true; }
    /// Returns whether a text translates another source text than that of the table.
    [[nodiscard]] virtual bool IsStale(quint32 /*row*/, quint32 /*column*/) const { return false; }
    /// Returns whether the file says that a translation isn't finished.
    [[nodiscard]] virtual bool IsUnfinished(quint32 /*row*/, quint32 /*column*/) const { return false; }
};
