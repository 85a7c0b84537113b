// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

/// Returns the number of columns if standard output is a terminal, otherwise 0.
[[nodiscard]] int TerminalColumns();

/// Cuts each line of a text (UTF-8) to a number of columns and ends it with an ellipsis if it is longer. Chinese
/// characters and the like take two columns, combining ones none.
[[nodiscard]] QByteArray CutLines(const QByteArray &text, int columns);
