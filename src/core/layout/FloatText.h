// SPDX-License-Identifier: MIT
#pragma once

#include "Text.h"

// Numbers with a decimal point, independent of the locale of the process.

/// The standard atof.
[[nodiscard]] float ParseFloat(const NarrowText &text);

/// "(%f, %f)". Stores the numbers that match, like scanf. `behind` is true if there is text between the second number
/// and ")".
struct FloatPair
{
    int fields = 0;
    bool behind = false;
};
FloatPair ScanFloatPair(const NarrowText &text, float &x, float &y);

/// "%f" without zeros at its end.
[[nodiscard]] NarrowText PrintFloat(float number);
