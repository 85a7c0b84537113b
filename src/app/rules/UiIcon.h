#pragma once

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
    // rows of the list of files
    NewFile,
    MissingFile,
    NoFile,
    TextFile,
    Archive,
    // actions
    Open,
    Save,
    Undo,
    Redo,
    Output,
    About,
    Close,
    Application,
};
