#pragma once

#include <QString>

/// The text with a blank for each line end ("\r\n" is one) and each tab: a string file has no other way to hold it in
/// one cell.
[[nodiscard]] QString InOneLine(const QString &text);
