// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// A tool tip that shows a text literally, without interpreting rich text in it. The text is wrapped at a readable
/// width, and cut after 2,000 UTF-16 units.
[[nodiscard]] QString LiteralTip(const QString &text);
