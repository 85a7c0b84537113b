// SPDX-License-Identifier: MIT
#include "StringGridRules.h"

#include "Paths.h"
#include "StringTable.h"

#include <QFileInfo>

std::optional<ActionState> StringActionState(ActionId id, const StringGridState &state)
{
    const bool hasRows = state.strings > 0;
    const bool hasSelectedString = hasRows && state.selected > (state.isNewSelected ? 1 : 0);
    switch (id) {
    case ACTION_NEW:
    case ACTION_IMPORT:
    case ACTION_LANGUAGE:
    case ACTION_DELETE_ALL:
    case ACTION_SELECT_ALL:
        return ActionState{};
    case ACTION_EXPORT:
        return ActionState{hasRows};
    case ACTION_UNDO:
        return ActionState{state.canUndo};
    case ACTION_REDO:
        return ActionState{state.canRedo};
    case ACTION_COPY:
    case ACTION_DELETE:
        return ActionState{hasSelectedString};
    case ACTION_PASTE:
        return ActionState{state.hasCopies};
    case ACTION_CUT:
        return ActionState{false};
    case ACTION_RENAME:
        return ActionState{state.selected > 0};
    case ACTION_PUSH_STRING:
        return ActionState{hasSelectedString};
    default:
        return std::nullopt;
    }
}

ActionState PushEntryState(const StringGridState &state, int pushed)
{
    const int strings = state.selected - (state.isNewSelected ? 1 : 0);
    const bool differ = pushed != 0 && pushed != strings;
    return {strings > 0 && !differ, strings > 0 && pushed == strings};
}

int TypingLimit(int column)
{
    return column == StringTable::ID_COLUMN ? 64 : 512;
}

DropVerdict JudgeDrop(const QString &path)
{
    if (QFileInfo(path).isDir())
        return DropVerdict::Skip;
    return FileExtension(path).compare(QStringLiteral("xls"), Qt::CaseInsensitive) == 0 ? DropVerdict::Import
                                                                                        : DropVerdict::WrongType;
}
