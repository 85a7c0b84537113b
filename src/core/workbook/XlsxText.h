#pragma once

#include <QString>

// A text in an .xlsx file: what XML can't hold stands in it as "_xHHHH_", a UTF-16 unit in hexadecimal, and a text that
// has such a thing in it gets its first "_" escaped. Of the control characters the writing library takes care itself.

/// The text that the UTF-8 of an element stands for. Blanks at its ends count even where the element doesn't say so
/// (xml:space): Gnumeric never does.
[[nodiscard]] QString DecodeXlsxText(QByteArrayView utf8);

/// UTF-8 for the writing library, which takes up to the first zero. A lone surrogate becomes U+FFFD.
[[nodiscard]] QByteArray EncodeXlsxText(QStringView text);
