#pragma once

#include "Buffer.h"

/// Gives `file`, a png, once more with its pixels stored instead of compressed, all checksums of the original being
/// right.
///
/// Most of the time of reading a png goes into decompressing, and libdeflate does it in less than half the time of
/// zlib, but only at one go. So the pixels are decompressed here, and libpng reads what comes out as it reads any png.
///
/// False where that isn't possible: the file is large (then it is better read row by row), damaged or unusual. The
/// original then tells libpng what there is to tell.
bool UnpackPng(Bytes file, Buffer &unpacked);
