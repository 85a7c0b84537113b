#pragma once

#include "ResFolder.h"

class CResModel;

// What the project tree decides, without a window.

/// What a folder is called: its title, and for the root, which has none, the project's name.
[[nodiscard]] QString LabelOf(const CResFolder &folder, const CResModel &document);

/// The folders from the root down to `folder`, both with them. Empty when it isn't in the tree, isn't shown, or is
/// null; such a pointer isn't read.
[[nodiscard]] std::vector<CResFolder *> PathTo(CResFolder &root, const CResFolder *folder);

/// Says whether `folder` is `tree` or below it.
[[nodiscard]] bool IsWithin(const CResFolder &folder, const CResFolder &tree);

/// Says whether `folder`, which has a row in the project tree, is destroyed when `going` is announced to go
/// (ITreeListener). Of the folders with rows only a layout's is deleted itself; others are emptied.
[[nodiscard]] bool GoesWith(const CResFolder &folder, const CResFolder &going);

/// Says whether there are resolutions to choose below a folder: the root, that of the images and that of the layouts.
[[nodiscard]] bool HasResolutions(const CResFolder &folder);

/// The question before a folder is emptied.
[[nodiscard]] QString ClearQuestion(const QString &label);

/// Says whether a folder's label may be edited: a layout's alone.
[[nodiscard]] bool CanEditLabel(const CResFolder *folder);

/// The longest label that can be typed, in characters.
inline constexpr int LONGEST_LABEL = 64;

/// What a typed label came to.
struct LabelEdit
{
    QString label;   ///< the new one; empty when nothing has changed
    QString message; ///< what to tell the user; empty when there is nothing
};

/// Gives a layout the name that was typed: without blanks at its ends, in upper case.
[[nodiscard]] LabelEdit EndLabelEdit(CResModel &document, CResFolder &folder, const QString &typed);
