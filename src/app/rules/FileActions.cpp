// SPDX-License-Identifier: MIT
#include "FileActions.h"

#include "FileList.h"

#include <algorithm>

namespace
{

enum class Needs
{
    Nothing,
    NeverThere, ///< the action is disabled
    NoItem,     ///< the folder isn't that of a component
    Rows,       ///< at least one selected row
    RowsNoItem,
    OneRow,
    OneFile,   ///< one selected row, with a path
    Resource,  ///< the first selected row has a resource
    Resources, ///< the first row of the list has a resource
    SameKind,  ///< the selected rows are all Push or all Normal; a single row needs a path
};

struct ActionNeeds
{
    ActionId id;
    Needs always;
    Needs inMenu; // additionally, in the list's own menu
};

constexpr ActionNeeds TABLE[] = {
    {ACTION_NEW, Needs::Nothing, Needs::Nothing},
    {ACTION_IMPORT, Needs::NoItem, Needs::Nothing},
    {ACTION_RENAME, Needs::RowsNoItem, Needs::OneRow},
    {ACTION_BROWSE, Needs::Rows, Needs::OneRow},
    {ACTION_OPEN_FILE, Needs::Nothing, Needs::OneFile},
    {ACTION_OPEN_FOLDER, Needs::Nothing, Needs::OneFile},
    {ACTION_DELETE, Needs::Resource, Needs::Resource},
    {ACTION_DELETE_ALL, Needs::Nothing, Needs::Resources},
    {ACTION_PUSH_FILE, Needs::Nothing, Needs::SameKind},
    {ACTION_RESET_IMAGE, Needs::Nothing, Needs::Rows},
    {ACTION_SELECT_ALL, Needs::Nothing, Needs::Nothing},
    {ACTION_FILTER_IMAGES, Needs::NeverThere, Needs::NeverThere},
    {ACTION_PUSH_IMAGE, Needs::NeverThere, Needs::NeverThere},
    // The edit actions for text, which come here only while no text is being edited.
    {ACTION_COPY, Needs::NeverThere, Needs::NeverThere},
    {ACTION_CUT, Needs::NeverThere, Needs::NeverThere},
    {ACTION_PASTE, Needs::NeverThere, Needs::NeverThere},
    {ACTION_UNDO, Needs::NeverThere, Needs::NeverThere},
};

const ActionNeeds *EntryOf(ActionId id)
{
    const auto *const found =
        std::find_if(std::begin(TABLE), std::end(TABLE), [&](const auto &e) { return e.id == id; });
    return found == std::end(TABLE) ? nullptr : found;
}

bool IsMet(Needs needs, const FileList &list, const FileSelection &selection)
{
    switch (needs) {
    case Needs::Nothing:
    case Needs::SameKind: // checked separately
        return true;
    case Needs::NeverThere:
        return false;
    case Needs::NoItem:
        return !list.IsItemFolder();
    case Needs::Rows:
        return selection.count > 0;
    case Needs::RowsNoItem:
        return selection.count > 0 && !list.IsItemFolder();
    case Needs::OneRow:
        return selection.count == 1;
    case Needs::OneFile:
        return selection.count == 1 && !list.CellText(selection.first, FileList::PATH_COLUMN).isEmpty();
    case Needs::Resource:
        return selection.count > 0 && list.At(selection.first);
    case Needs::Resources:
        return list.At(0) != nullptr;
    }
    return false;
}

/// A row without a resource is Normal.
ActionState PushState(const FileList &list, const std::vector<int> &selected)
{
    const auto isPush = [&](int row) { return list.At(row) && list.At(row)->Id()->push; };
    const auto pushed = size_t(std::count_if(selected.begin(), selected.end(), isPush));
    if (selected.empty() || (pushed != 0 && pushed != selected.size()))
        return {false};
    const bool hasFile = selected.size() > 1 || !list.CellText(selected.front(), FileList::PATH_COLUMN).isEmpty();
    return {hasFile, pushed == selected.size()};
}

} // namespace

std::optional<ActionState> FileActionState(ActionId id, const FileList &list, const FileSelection &selection)
{
    const ActionNeeds *const entry = EntryOf(id);
    return entry ? std::optional(ActionState{IsMet(entry->always, list, selection)}) : std::nullopt;
}

ActionState FileMenuState(ActionId id, const FileList &list, const std::vector<int> &selected, bool isEnabled)
{
    const ActionNeeds *const entry = EntryOf(id);
    const FileSelection selection{int(selected.size()), selected.empty() ? -1 : selected.front()};
    if (!isEnabled || !entry || !IsMet(entry->inMenu, list, selection))
        return {false};
    return entry->inMenu == Needs::SameKind ? PushState(list, selected) : ActionState{};
}
