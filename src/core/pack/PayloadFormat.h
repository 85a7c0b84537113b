// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

// Definitions that the writer and the reader of the payload share.

/// The name of the section, and the mark before the payload in a packed DLL; both have its zero byte.
inline constexpr char PAYLOAD_NAME[8] = ".zp_res";

/// The first key of a language; the low 16 bits are the language's number.
inline constexpr quint32 LANGUAGE_KEY = 0xFFFF0000;

/// Returns `size` rounded up to a multiple of 4, the alignment of entries, items and the payload itself.
[[nodiscard]] constexpr quint64 RoundUpTo4(quint64 size)
{
    return (size + 3) & ~quint64(3);
}
