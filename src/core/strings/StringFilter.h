#pragma once

#include <QString>

#include <vector>

class StringTable;

/// Which rows of a string table are to be shown. Rows must meet every part that is set.
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

    QString text;            ///< a cell of `column` has it; empty: not set
    bool matchCase = false;  ///< of the text
    int column = ANY_COLUMN; ///< of the table: where the text is looked for
    int missingIn = NOWHERE; ///< a language's column in which the row has a gap (StringGaps)
    Kind kind = Kind::Any;

    /// No part is set: all rows are shown.
    [[nodiscard]] bool IsEmpty() const { return text.isEmpty() && missingIn == NOWHERE && kind == Kind::Any; }
    /// Every row that meets this one also meets `wider`: only the rows that met it need to be looked at.
    [[nodiscard]] bool IsWithin(const StringCondition &wider) const;
    bool operator==(const StringCondition &) const = default;
};

/// The numbers of the rows that meet the condition, ascending; without the new-row line. With `within`, which is
/// ascending, only of those rows. Looks at the tree as it is now: nothing is kept between calls.
[[nodiscard]] std::vector<int> RowsThatMeet(const StringCondition &condition, const StringTable &table,
                                            const std::vector<int> *within = nullptr);

/// Says whether a cell has the text of the condition.
[[nodiscard]] bool HasText(const StringCondition &condition, const StringTable &table, int row, int col);
