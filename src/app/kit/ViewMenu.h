// SPDX-License-Identifier: MIT
#pragma once

#include "ActionTarget.h"

#include <QPoint>

#include <functional>
#include <span>

class QWidget;

/// An entry of a view's own menu.
struct ViewMenuEntry
{
    ActionId id;           ///< ACTION_NONE: a separator
    const char *text = ""; ///< with "&" before the access key, and the shortcut after a tab
    bool isChoice = false; ///< one of several exclusive entries; a checked one has a round mark
};

/// Opens a view's own menu and waits until it is closed. Calls `run` with the entry that the user chooses. The status
/// bar shows what the highlighted entry does.
void RunViewMenu(QWidget &view, std::span<const ViewMenuEntry> entries, const QPoint &globalPlace,
                 const std::function<ActionState(ActionId)> &stateOf, const std::function<void(ActionId)> &run);
