// SPDX-License-Identifier: MIT
#pragma once

#include "ResFolder.h"

class CResModel;

// The logic of the project tree, without a window.

/// The label of a folder: its title, or the project's name for the root, which has no title.
[[nodiscard]] QString LabelOf(const CResFolder &folder, const CResModel &document);

/// The folders from the root down to `folder`, including both. Empty if `folder` isn't in the tree, isn't shown, or is
/// null. A pointer that isn't in the tree is never dereferenced.
[[nodiscard]] std::vector<CResFolder *> PathTo(CResFolder &root, const CResFolder *folder);

/// Returns whether `folder` is `tree` or below it.
[[nodiscard]] bool IsWithin(const CResFolder &folder, const CResFolder &tree);

/// Returns whether `folder`, which has a row in the project tree, will be destroyed when ITreeListener announces
/// `going`. Of the folders with rows, only that of a layout is itself deleted; others are only emptied.
[[nodiscard]] bool GoesWith(const CResFolder &folder, const CResFolder &going);

/// Returns whether the user can choose resolutions for a folder: the root, and the folders of images and of layouts.
[[nodiscard]] bool HasResolutions(const CResFolder &folder);

/// The question that the user is asked before a folder is emptied.
[[nodiscard]] QString ClearQuestion(const QString &label);

/// Returns whether the user may edit a folder's label. Only that of a layout can be edited.
[[nodiscard]] bool CanEditLabel(const CResFolder *folder);

/// The longest label that can be typed, in characters.
inline constexpr int LONGEST_LABEL = 64;

/// The result of typing a label.
struct LabelEdit
{
    QString label;   ///< the new label; empty if it hasn't changed
    QString message; ///< for the user; empty if there is none
};

/// Gives a layout the name that was typed, trimmed and in upper case.
[[nodiscard]] LabelEdit EndLabelEdit(CResModel &document, CResFolder &folder, const QString &typed);
