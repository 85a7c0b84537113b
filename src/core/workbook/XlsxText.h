#pragma once

#include <QString>

// A text in an .xlsx file: what XML can't hold stands in it as "_xHHHH_", a UTF-16 unit in hexadecimal, and a text that
// has such a thing in it gets its first "_" escaped. Of the control characters the writing library takes care itself.

/// The text that UTF-8 of an element stands for; without its blanks at both ends unless they were to be kept.
[[nodiscard]] QString DecodeXlsxText(QByteArrayView utf8, bool keepsBlanks);

/// UTF-8 for the writing library, which takes up to the first zero. A lone surrogate becomes U+FFFD.
[[nodiscard]] QByteArray EncodeXlsxText(QStringView text);
