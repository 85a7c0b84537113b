#pragma once

#include "ResFolder.h"
#include "UiIcon.h"

/// What stands right of the project tree.
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

/// How a kind of folder shows in the project tree.
struct FolderKindEntry
{
    quint32 kind;
    UiIcon icon;
    Pane pane;
    TreeMenu menu;
};

/// By kind; a kind that isn't known has no icon, no menu and the default view.
[[nodiscard]] const FolderKindEntry &EntryOf(quint32 kind);
/// The icon of one folder: Default has another than the resolutions.
[[nodiscard]] UiIcon IconOf(const CResFolder &folder);
/// Folders that are not in use are left out, with all below them.
[[nodiscard]] inline bool IsShown(const CResFolder &folder)
{
    return (folder.kind & KIND_FLAG_OFF) == 0;
}
