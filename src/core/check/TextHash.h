// SPDX-License-Identifier: MIT
#pragma once

#include <QStringView>

/// Returns the FNV-1a hash (64 bits) of a text's UTF-16 units, the low byte of each first. With `before`, the hash of
/// another text, it is the hash of both. The same on every machine, since baselines store it.
[[nodiscard]] constexpr quint64 HashOf(QStringView text, quint64 before = 0xCBF29CE484222325)
{
    constexpr quint64 PRIME = 0x100000001B3;
    quint64 hash = before;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const char16_t unit = text.utf16()[i];
        hash = (hash ^ (unit & 0xFF)) * PRIME;
        hash = (hash ^ (unit >> 8)) * PRIME;
    }
    return (hash ^ 0xFF) * PRIME; // so that "ab" and "c" differ from "a" and "bc"
}
