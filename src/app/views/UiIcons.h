#pragma once

#include <QIcon>

/// The program's pictures, drawn as vectors in a square of sixteen, sharp at any scale.
enum class UiIcon
{
    None,
    // the project tree
    Files,
    Audio,
    Video,
    Binary,
    Images,
    Resolution,
    DefaultResolution,
    ComponentImages,
    Strings,
    Layouts,
    Project,
    // commands
    Open,
    Save,
    Undo,
    Redo,
    Output,
    About,
    Close,
    Application,
};

/// An icon that draws itself in the size and for the screen it is asked for, in colours that suit a light and a dark
/// desktop.
[[nodiscard]] QIcon MakeIcon(UiIcon icon);
