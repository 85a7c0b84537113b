#pragma once

#include "Actions.h"

#include <QString>

#include <span>

/// An entry of a menu.
struct MenuEntry
{
    ActionId id;                ///< ACTION_NONE: a line
    const char *text = "";      ///< with "&" before the letter that reaches it
    const char *shortcuts = ""; ///< divided by blanks, the one that is shown first
    const char *tip = "";       ///< what it does, in a sentence for the status bar
    bool isToggle = false;
};

struct Menu
{
    const char *title;
    std::span<const MenuEntry> entries;
    bool listsWindows = false; ///< the open projects follow the entries
};

/// The menu bar while no document is open, and that while one is.
[[nodiscard]] std::span<const Menu> MenuBar(bool hasDocument);

/// Keys of actions that are in no menu. Each works like a menu's.
[[nodiscard]] std::span<const MenuEntry> FurtherKeys();

/// The actions of the tool bar; ACTION_NONE is a gap.
[[nodiscard]] std::span<const ActionId> ToolBarActions();

/// What an action of the menu bar, of a key or of a view's menu does, in a sentence for the status bar; empty for one
/// that isn't known.
[[nodiscard]] QString TipOf(ActionId id);
