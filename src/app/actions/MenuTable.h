#pragma once

#include "Commands.h"

#include <QString>

#include <span>

/// An entry of a menu.
struct MenuEntry
{
    int command;                ///< 0: a line
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

/// Keys of commands that stand in no menu. Each works like a menu's.
[[nodiscard]] std::span<const MenuEntry> FurtherKeys();

/// The commands of the tool bar; 0 is a gap.
[[nodiscard]] std::span<const int> ToolBarCommands();

/// What a command of the menu bar, of a key or of a view's menu does, in a sentence for the status bar; empty for one
/// that isn't known.
[[nodiscard]] QString TipOf(int command);
