// SPDX-License-Identifier: MIT
#pragma once

#include "DeviceFont.h"

/// The function that libmorvanite-fonts.so exports under the name FONTS_FUNCTION.
using OpenFontFunction = decltype(&OpenDeviceFont);

inline constexpr char FONTS_FUNCTION[] = "MorvaniteOpenFont";
