// SPDX-License-Identifier: MIT
#pragma once

#include "ActionTarget.h"

#include <optional>
#include <vector>

class FileList;

// The enabled states of the actions of the list of files.

/// The selection of the list.
struct FileSelection
{
    int count = 0;  ///< of rows, including the new row
    int first = -1; ///< the first selected row; -1 for none
};

/// An action's state in the menus of the window and for keys; nothing for an action that doesn't belong to the list.
[[nodiscard]] std::optional<ActionState> FileActionState(ActionId id, const FileList &list,
                                                         const FileSelection &selection);
/// An action's state in the list's own menu, which has stricter conditions. `isEnabled` says whether the action is
/// enabled in the window's menus. `selected` are the selected rows, ascending.
[[nodiscard]] ActionState FileMenuState(ActionId id, const FileList &list, const std::vector<int> &selected,
                                        bool isEnabled);
