#pragma once

#include <QtGlobal>

// What writer and reader of the payload share.

/// The name of the section, and the mark before the payload in a packed DLL; both have its zero byte.
inline constexpr char PAYLOAD_NAME[8] = ".zp_res";

/// The first of the keys that belong to languages; the language's number is in the low 16 bits.
inline constexpr quint32 LANGUAGE_KEY = 0xFFFF0000;

/// Entries, items and the payload itself begin at multiples of 4.
[[nodiscard]] constexpr quint64 RoundUpTo4(quint64 size)
{
    return (size + 3) & ~quint64(3);
}
