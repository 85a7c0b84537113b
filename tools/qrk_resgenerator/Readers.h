// SPDX-License-Identifier: MIT
#pragma once

#include "Picture.h"

/// Detects the format of `file` by its first bytes, whatever its name, and reads it into `picture` up to its last row.
///
/// `file` may have any bytes. A file that is truncated, or damaged according to its own format, fails. After success
/// the caller must call picture.Finish().
Outcome ReadPicture(Bytes file, Picture &picture);

/// One reader for each format. `file` begins like that format; nothing else is known about it.
Outcome ReadBmp(Bytes file, Picture &picture);
Outcome ReadGif(Bytes file, Picture &picture);
Outcome ReadJpeg(Bytes file, Picture &picture);
Outcome ReadPng(Bytes file, Picture &picture);
