// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

// In a text of an .xlsx file, a character that XML can't contain is escaped as "_xHHHH_", a UTF-16 unit in hexadecimal.
// If the text itself contains such a sequence, the first "_" of the sequence is escaped. The writing library escapes
// control characters by itself.

/// Decodes the text of an element from UTF-8. Blanks at its ends belong to the text even if the element doesn't say so
/// (xml:space), because Gnumeric never does.
[[nodiscard]] QString DecodeXlsxText(QByteArrayView utf8);

/// Encodes a text as UTF-8 for the writing library, which reads up to the first zero. A lone surrogate becomes U+FFFD.
[[nodiscard]] QByteArray EncodeXlsxText(QStringView text);
