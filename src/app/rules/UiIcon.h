// SPDX-License-Identifier: MIT
#pragma once

/// The program's icons. They are drawn as vectors on a grid of 16 by 16 and are sharp at any scale.
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
    // the severity of findings, each with a shape of its own
    Error,
    Warning,
    Note,
};
