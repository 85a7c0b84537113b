// SPDX-License-Identifier: MIT
#pragma once

#include "DeviceSizes.h"
#include "PictureAlpha.h"

/// The functions that libmorvanite-pictures.so exports under the name PICTURE_FUNCTIONS.
struct PictureFunctions
{
    CountAlpha countAlpha;
    MeasurePicture measure;
};

inline constexpr char PICTURE_FUNCTIONS[] = "MorvanitePictures";
