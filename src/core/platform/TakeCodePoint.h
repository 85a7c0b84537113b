// SPDX-License-Identifier: MIT
#pragma once

#include <QStringView>

/// Returns the code point at a place of a text, and moves `at` behind it. Half of a surrogate pair without the other is
/// returned as it is. `at` must be below the size of the text.
[[nodiscard]] inline char32_t TakeCodePoint(QStringView text, qsizetype &at)
{
    const char16_t *const units = text.utf16();
    const char16_t unit = units[at++];
    if (!QChar::isHighSurrogate(unit) || at == text.size() || !QChar::isLowSurrogate(units[at]))
        return unit;
    return QChar::surrogateToUcs4(unit, units[at++]);
}
