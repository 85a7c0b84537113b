// SPDX-License-Identifier: MIT
#pragma once

#include "ScreenSize.h"

#include <string>
#include <vector>

/// Appends the values of an option --resolution, such as "240x320", to `sizes`. Returns false, with a message, if one
/// of them is no size.
[[nodiscard]] bool ReadScreenSizes(const std::vector<std::string> &values, std::vector<ScreenSize> &sizes);
