#pragma once

#include <QString>

/// A tool tip that shows a text as it is, whatever marks of rich text are in it, wrapped at a width that can be read,
/// and cut after 2,000 UTF-16 units.
[[nodiscard]] QString LiteralTip(const QString &text);
