// SPDX-License-Identifier: MIT
#include "FontsModule.h"

// The symbol that FONTS_FUNCTION names.
extern "C" __attribute__((visibility("default"))) const OpenFontFunction MorvaniteOpenFont = OpenDeviceFont;
