#pragma once

#include "Text.h"

/// The longest name of an ID, in characters.
inline constexpr int MAX_ID_NAME = 64;

/// True for 1 to 64 characters, none above 255, each a letter or digit or "_", the first no digit.
[[nodiscard]] bool IsValidIdName(QStringView text);
[[nodiscard]] bool IsValidIdName(QByteArrayView utf8);

/// Replaces each character that isn't an ASCII letter, digit or "_" by "_". True when at least one was left standing.
bool MakeIdSafe(QString &text);

/// `n` in decimal behind so much of `base` as leaves 64 characters at most.
[[nodiscard]] QString AppendCounter(const QString &base, int n);

/// "%f" without trailing zeros behind the point, and without a point that would end it.
[[nodiscard]] QString FormatFloat(double value);
