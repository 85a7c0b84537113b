// SPDX-License-Identifier: MIT
#pragma once

#include "Text.h"

/// The largest length of an ID's name, in characters.
inline constexpr int MAX_ID_NAME = 64;

/// True for a name of 1 to 64 characters, none above 255, each a letter, a digit or "_", the first not a digit.
[[nodiscard]] bool IsValidIdName(QStringView text);
[[nodiscard]] bool IsValidIdName(QByteArrayView utf8);

/// Replaces each character that isn't an ASCII letter, a digit or "_" by "_". True when at least one character was
/// kept.
bool MakeIdSafe(QString &text);

/// Returns `base` followed by `n` in decimal. Shortens `base` so that the result has at most 64 characters.
[[nodiscard]] QString AppendCounter(const QString &base, int n);

/// Formats a number as "%f" does, without trailing zeros after the point and without a point at the end.
[[nodiscard]] QString FormatFloat(double value);
