#pragma once

#include "ActionTarget.h"

#include <QString>

#include <optional>
#include <vector>

// What the view of the string table decides: which actions are enabled, how long a text may be, what a dropped file is.

/// What the enabled states depend on.
struct StringGridState
{
    int strings = 0;            ///< rows of the table, without the new-row line
    int selected = 0;           ///< rows that are selected, the new-row line too
    bool isNewSelected = false; ///< the new-row line is one of them
    bool canUndo = false;
    bool canRedo = false;
    bool hasCopies = false;
};

/// An action's state in the menus and for keys; nothing for one that isn't the string view's.
[[nodiscard]] std::optional<ActionState> StringActionState(ActionId id, const StringGridState &state);
/// The entry Push Resource in the view's own menu: `pushed` of the `strings` selected rows that have a string are Push.
[[nodiscard]] ActionState PushEntryState(const StringGridState &state, int pushed);

/// The longest text that can be typed into a column, in characters.
[[nodiscard]] int TypingLimit(int column);

inline constexpr char EXCEL_FILTER[] = "Excel files (*.xls)|*.xls|Excel workbooks (*.xlsx)|*.xlsx|"
                                       "Comma-separated values (*.csv)|*.csv||";

/// What becomes of a file that is dropped on the table.
enum class DropVerdict
{
    Skip, ///< a folder
    WrongType,
    Import,
};
[[nodiscard]] DropVerdict JudgeDrop(const QString &path);
