// SPDX-License-Identifier: MIT
#pragma once

#include "DeviceSizes.h"

/// The sizes that the program's converters would make, found by converting in this process. A picture is decoded each
/// time that it is asked for.
[[nodiscard]] DeviceSizes ConvertedSizes();

/// A MeasureLayouts.
[[nodiscard]] bool SizesOfConvertedLayouts(Environment &env, const LayoutConverterCall &call, const IdNumbers &numbers,
                                           LayoutSizes &sizes, QStringList &faults);
