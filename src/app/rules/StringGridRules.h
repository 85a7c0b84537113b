// SPDX-License-Identifier: MIT
#pragma once

#include "ActionTarget.h"

#include <QString>

#include <optional>
#include <vector>

// The rules of the string table's view: which actions are enabled, how long a text may be, and what a dropped file is.

/// The state that the enabled states depend on.
struct StringGridState
{
    int strings = 0;            ///< rows of the table, without the new-row line
    int selected = 0;           ///< selected rows, including the new-row line
    bool isNewSelected = false; ///< the new-row line is selected
    bool canUndo = false;
    bool canRedo = false;
    bool hasCopies = false;
};

/// An action's state in the menus and for keys; nothing for an action that doesn't belong to the string view.
[[nodiscard]] std::optional<ActionState> StringActionState(ActionId id, const StringGridState &state);
/// The state of the entry Push Resource in the view's own menu. `pushed` is the number of selected rows with a string
/// that are Push.
[[nodiscard]] ActionState PushEntryState(const StringGridState &state, int pushed);

/// The longest text that can be typed into a column, in characters.
[[nodiscard]] int TypingLimit(int column);

/// The files that the table is imported from and exported to.
inline constexpr char EXCHANGE_FILTER[] = "Excel files (*.xls)|*.xls|Excel workbooks (*.xlsx)|*.xlsx|"
                                          "Comma-separated values (*.csv)|*.csv|PO files (*.po)|*.po|"
                                          "XLIFF files (*.xlf)|*.xlf; *.xliff||";

/// What is done with a file that is dropped on the table.
enum class DropVerdict
{
    Skip, ///< a folder
    WrongType,
    Import,
};
[[nodiscard]] DropVerdict JudgeDrop(const QString &path);
