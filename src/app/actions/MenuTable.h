// SPDX-License-Identifier: MIT
#pragma once

#include "Actions.h"

#include <QString>

#include <span>

/// An entry of a menu.
struct MenuEntry
{
    ActionId id;                ///< ACTION_NONE: a separator
    const char *text = "";      ///< with "&" before the access key
    const char *shortcuts = ""; ///< separated by blanks; the menu shows the first
    const char *tip = "";       ///< what the action does, as a sentence for the status bar
    bool isToggle = false;
};

struct Menu
{
    const char *title;
    std::span<const MenuEntry> entries;
    bool listsWindows = false; ///< the open projects follow the entries
};

/// The menu bar: with `hasDocument` that of a window with an open document, otherwise that without one.
[[nodiscard]] std::span<const Menu> MenuBar(bool hasDocument);

/// Keys of actions that are in no menu. They work like the shortcuts of menu entries.
[[nodiscard]] std::span<const MenuEntry> FurtherKeys();

/// The actions of the tool bar; ACTION_NONE is a gap.
[[nodiscard]] std::span<const ActionId> ToolBarActions();

/// A sentence for the status bar that says what an action of the menu bar, of a key or of a view's menu does. Empty for
/// an unknown action.
[[nodiscard]] QString TipOf(ActionId id);
