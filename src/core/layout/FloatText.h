#pragma once

#include "Text.h"

// Numbers with a decimal point, which is a point whatever the locale of the process says.

/// The standard atof.
[[nodiscard]] float ParseFloat(const NarrowText &text);

/// "(%f, %f)". Stores the numbers that it reaches, like scanf; `behind` tells whether something stands between the
/// second number and ")".
struct FloatPair
{
    int fields = 0;
    bool behind = false;
};
FloatPair ScanFloatPair(const NarrowText &text, float &x, float &y);

/// "%f" without zeros at its end.
[[nodiscard]] NarrowText PrintFloat(float number);
