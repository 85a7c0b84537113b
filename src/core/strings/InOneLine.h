// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// Replaces each line end ("\r\n" is one) and each tab of a text by a blank, because a cell of a string file can't
/// contain them.
[[nodiscard]] QString InOneLine(const QString &text);
