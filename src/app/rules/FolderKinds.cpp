// SPDX-License-Identifier: MIT
#include "FolderKinds.h"

namespace
{

constexpr FolderKindEntry ENTRIES[] = {
    {KIND_ROOT, UiIcon::Project, Pane::Default, TreeMenu::Root},
    {KIND_FILES, UiIcon::Files, Pane::Files, TreeMenu::Leaf},
    {KIND_AUDIO, UiIcon::Audio, Pane::Files, TreeMenu::Leaf},
    {KIND_VIDEO, UiIcon::Video, Pane::Files, TreeMenu::Leaf},
    {KIND_BINARY, UiIcon::Binary, Pane::Files, TreeMenu::Leaf},
    {KIND_IMAGES, UiIcon::Images, Pane::Default, TreeMenu::Root},
    {KIND_RESO_IMAGES, UiIcon::Resolution, Pane::Files, TreeMenu::Leaf},
    {KIND_STRINGS, UiIcon::Strings, Pane::Strings, TreeMenu::Leaf},
    {KIND_LAYOUTS, UiIcon::Layouts, Pane::Default, TreeMenu::Root},
    {KIND_RESO_LAYOUTS, UiIcon::Resolution, Pane::Default, TreeMenu::LayoutResolution},
    {KIND_LAYOUT, UiIcon::Layouts, Pane::Layout, TreeMenu::Layout},
    {KIND_CPIMAGES, UiIcon::ComponentImages, Pane::Default, TreeMenu::ComponentImages},
    {KIND_COMPONENT, UiIcon::ComponentImages, Pane::Files, TreeMenu::ComponentImages},
};
constexpr FolderKindEntry UNKNOWN = {0, UiIcon::None, Pane::Default, TreeMenu::None};

} // namespace

const FolderKindEntry &EntryOf(quint32 kind)
{
    for (const FolderKindEntry &entry : ENTRIES) {
        if (entry.kind == kind)
            return entry;
    }
    return UNKNOWN;
}

UiIcon IconOf(const CResFolder &folder)
{
    const bool isDefault = (folder.kind == KIND_RESO_IMAGES || folder.kind == KIND_RESO_LAYOUTS) && folder.index < 0;
    return isDefault ? UiIcon::DefaultResolution : EntryOf(folder.kind).icon;
}
