// SPDX-License-Identifier: MIT
#pragma once

#include <QStringView>

/// What a text contains. A text rule names the features that it needs, so that it isn't called for other texts.
enum TextFeature : quint32
{
    HAS_TEXT = 0x001,         ///< isn't empty
    HAS_PERCENT = 0x002,      ///< "%"
    HAS_BRACE = 0x004,        ///< "{" or "}"
    HAS_BACKSLASH = 0x008,    ///< "\"
    HAS_DIGIT = 0x010,        ///< a decimal digit of any script
    HAS_CONTROL = 0x020,      ///< a control character, a lone surrogate, or an invisible character of format
    HAS_BLANK_EDGE = 0x040,   ///< begins or ends with a blank character
    HAS_BLANK_PAIR = 0x080,   ///< two blanks one after the other
    HAS_PUNCTUATION = 0x100,  ///< the last character that isn't a blank is neither a letter nor a digit
    HAS_BEYOND_LATIN = 0x200, ///< a character above U+00FF
    IS_EMPTY = 0x400,
    IS_BLANK = 0x1000,         ///< has only blank characters
    MAY_BE_DECOMPOSED = 0x800, ///< a character that Unicode's composed form (NFC) may not have in this place
};

/// Returns the features of a text (TextFeature) in one pass.
[[nodiscard]] quint32 FeaturesOf(QStringView text);
