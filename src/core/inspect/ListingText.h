// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

// Texts of packed files in listings.

/// Replaces each half of a surrogate pair that has no other half by U+FFFD.
[[nodiscard]] QString WholeCharacters(QString text);

/// A text as UTF-8 on one line, without characters that control a terminal.
[[nodiscard]] QByteArray OnOneLine(const QString &text);

/// A text at the right of a column of 12 characters.
[[nodiscard]] QByteArray Column(const QByteArray &text);
