#pragma once

#include "ActionTarget.h"

#include <QPoint>

#include <functional>
#include <span>

class QWidget;

/// An entry of a view's own menu.
struct ViewMenuEntry
{
    ActionId id;           ///< ACTION_NONE: a line
    const char *text = ""; ///< with "&" before the letter that reaches it, and behind a tab the key
    bool isChoice = false; ///< one of several, of which the one that is checked has a round mark
};

/// Opens a view's own menu and waits until it is closed. `run` is called for the entry that the user chooses. The
/// status bar shows what an entry does.
void RunViewMenu(QWidget &view, std::span<const ViewMenuEntry> entries, const QPoint &globalPlace,
                 const std::function<ActionState(ActionId)> &stateOf, const std::function<void(ActionId)> &run);
