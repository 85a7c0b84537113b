// SPDX-License-Identifier: MIT
#pragma once

#include "ResFolder.h"
#include "UiIcon.h"

/// The panes to the right of the project tree.
enum class Pane
{
    Default,
    Files,
    Strings,
    Layout,
};

/// The menus of the project tree.
enum class TreeMenu
{
    None,
    Root,
    Leaf,
    LayoutResolution,
    Layout,
    ComponentImages,
};

/// How the project tree shows a kind of folder.
struct FolderKindEntry
{
    quint32 kind;
    UiIcon icon;
    Pane pane;
    TreeMenu menu;
};

/// The entry of a kind. An unknown kind has no icon, no menu and the default view.
[[nodiscard]] const FolderKindEntry &EntryOf(quint32 kind);
/// The icon of a folder. The folder Default has a different icon than the resolutions.
[[nodiscard]] UiIcon IconOf(const CResFolder &folder);
/// Returns whether the tree shows a folder. Folders that are not in use are left out, with all folders below them.
[[nodiscard]] inline bool IsShown(const CResFolder &folder)
{
    return (folder.kind & KIND_FLAG_OFF) == 0;
}
