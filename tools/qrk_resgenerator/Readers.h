#pragma once

#include "Picture.h"

/// Tells the format of `file` by its first bytes, whatever its name, and reads it into `picture` up to its last row.
///
/// Any bytes may be given. A file that breaks off, or whose data its own format calls damaged, fails.
/// The caller then calls picture.Finish().
Outcome ReadPicture(Bytes file, Picture &picture);

/// One reader for each format. Each is given a file that begins as its format does, and nothing more is known of it.
Outcome ReadBmp(Bytes file, Picture &picture);
Outcome ReadGif(Bytes file, Picture &picture);
Outcome ReadJpeg(Bytes file, Picture &picture);
Outcome ReadPng(Bytes file, Picture &picture);
