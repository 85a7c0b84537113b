// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>

/// Reads a number of bytes that a user typed: digits, and K (1,024 bytes) or M (1,048,576 bytes) after them, in any
/// case. Returns nullopt for any other text, for 0, and for more than 4 GiB.
[[nodiscard]] std::optional<quint64> ParseByteCount(QStringView text);
