#pragma once

#include "ResFolder.h"

class CResModel;

// What the project tree decides, without a window.

/// What a folder is called: its title, and for the root, which has none, the project's name.
[[nodiscard]] QString LabelOf(const CResFolder &folder, const CResModel &document);

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
