// SPDX-License-Identifier: MIT
#pragma once

#include "PictureAlpha.h"

/// The functions that libmorvanite-pictures.so exports under the name PICTURE_FUNCTIONS.
struct PictureFunctions
{
    CountAlpha countAlpha;
};

inline constexpr char PICTURE_FUNCTIONS[] = "MorvanitePictures";
