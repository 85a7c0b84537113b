#pragma once

#include "ActionTarget.h"

#include <optional>
#include <vector>

class FileList;

// Which actions of the list of files are enabled.

/// What is selected in the list.
struct FileSelection
{
    int count = 0;  ///< rows, the new row too
    int first = -1; ///< the first of them; -1 for none
};

/// An action's state in the menus of the window and for keys; nothing for one that isn't the list's.
[[nodiscard]] std::optional<ActionState> FileActionState(ActionId id, const FileList &list,
                                                         const FileSelection &selection);
/// An action's state in the list's own menu, where it is stricter; `isEnabled` says whether it is enabled otherwise.
/// `selected` are the selected rows, ascending.
[[nodiscard]] ActionState FileMenuState(ActionId id, const FileList &list, const std::vector<int> &selected,
                                        bool isEnabled);
