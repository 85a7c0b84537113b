// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

// In a text of an .xlsx file, a character that XML can't contain is escaped as "_xHHHH_", a UTF-16 unit in hexadecimal.
// If the text itself contains such a sequence, the first "_" of the sequence is escaped.

/// Returns whether the text of an element is ASCII without escapes, so that decoding wouldn't change it.
[[nodiscard]] bool IsPlainXlsxText(QByteArrayView utf8);

/// Decodes the text of an element from UTF-8. Blanks at its ends belong to the text even if the element doesn't say so
/// (xml:space), because Gnumeric never does.
[[nodiscard]] QString DecodeXlsxText(QByteArrayView utf8);

/// The most bytes that PutXlsxText needs for a UTF-16 unit.
inline constexpr qsizetype MOST_XLSX_BYTES = 7;

/// Writes a text to `to` as the content of an element, in UTF-8, and returns the end. A lone surrogate becomes U+FFFD.
[[nodiscard]] char *PutXlsxText(char *to, QStringView text);
