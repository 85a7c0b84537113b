// SPDX-License-Identifier: MIT
#pragma once

#include "Buffer.h"

/// Copies `file`, a png, with its pixels stored instead of compressed, if all checksums of the original are correct.
///
/// Reading a png spends most of its time on decompression. libdeflate needs less than half the time of zlib, but must
/// decompress everything at once. So the pixels are decompressed here, and libpng reads the result like any png.
///
/// Returns false if that isn't possible: the file is large (it is then better read row by row), damaged or unusual.
/// libpng should then read the original, and report its errors.
bool UnpackPng(Bytes file, Buffer &unpacked);

/// Decompresses the pixels of a png into `rows`: for each row a byte that names its filter, then its filtered bytes. An
/// interlaced png has the rows of one pass after the other.
///
/// Returns false in the same cases, and if the png has chunks that change the meaning of the pixels, such as a palette.
bool UnpackPngRows(Bytes file, Buffer &rows);

/// Decompresses the beginning of the same rows into `rows`, whose size says how much is wanted. `start` has the first
/// bytes of a png, or all. Returns how many bytes it has decompressed: fewer if `start` doesn't have more, and 0 if it
/// is damaged or unusual. Checks nothing behind these rows, and no checksums.
std::size_t UnpackPngStart(Bytes start, Buffer &rows);
