// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

/// The index of the first choice that begins with a text, ignoring case. The search starts at the second choice and
/// ends with the first. Returns -1 if there is none, and for an empty text: a property without a value has no choice.
[[nodiscard]] int SelectString(const QStringList &choices, QStringView text);
