// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <vector>

class StringTable;

/// A condition for the rows of a string table that are shown. Rows must meet every part that is set.
struct StringCondition
{
    static constexpr int ANY_COLUMN = -1;
    static constexpr int NOWHERE = -1;

    enum class Kind
    {
        Any,
        Normal,
        Push,
    };

    QString text;            ///< the cell in `column` contains this text; empty: not set
    bool matchCase = false;  ///< whether case counts for the text
    int column = ANY_COLUMN; ///< the table's column in which the text is searched
    int missingIn = NOWHERE; ///< the language's column in which the row has a gap (StringGaps)
    Kind kind = Kind::Any;

    /// True if no part is set, so that all rows are shown.
    [[nodiscard]] bool IsEmpty() const { return text.isEmpty() && missingIn == NOWHERE && kind == Kind::Any; }
    /// True if every row that meets this condition also meets `wider`, so that only the rows that met `wider` need to
    /// be tested.
    [[nodiscard]] bool IsWithin(const StringCondition &wider) const;
    bool operator==(const StringCondition &) const = default;
};

/// Returns the numbers of the rows that meet the condition, ascending, without the new-row line. If `within`, which
/// must be ascending, isn't null, returns only rows that are in it. Reads the current tree; keeps nothing between
/// calls.
[[nodiscard]] std::vector<int> RowsThatMeet(const StringCondition &condition, const StringTable &table,
                                            const std::vector<int> *within = nullptr);

/// Returns whether a cell contains the text of the condition.
[[nodiscard]] bool HasText(const StringCondition &condition, const StringTable &table, int row, int col);
