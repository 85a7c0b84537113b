// SPDX-License-Identifier: MIT
#pragma once

#include <QStringView>

/// An escape sequence of C in a text, such as "\n", "\x41" or "\u00E9".
struct EscapeSequence
{
    qsizetype size = 0;   ///< with the backslash; at least 1
    char16_t letter = 0;  ///< what is behind the backslash; 0 at the end of the text
    bool isValid = false; ///< C has such a sequence
};

/// Returns the escape sequence that begins with the backslash at a place of a text.
[[nodiscard]] EscapeSequence EscapeAt(QStringView text, qsizetype at);
