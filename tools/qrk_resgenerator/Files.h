#pragma once

#include "Buffer.h"
#include "Outcome.h"

/// Reads a regular file of at most 512 MiB, whole.
Outcome ReadFile(const char *path, Buffer &contents);

/// Removes what an earlier run left at `target`, read-only or not. Fails for a folder, a device or the like, and where
/// `target` is `source` itself; then nothing is removed. Nothing there is fine.
Outcome RemoveOldTarget(const char *source, const char *target);

/// Writes a new file. It gets its name only once it is whole, so that no failure and no sudden end leaves a part of it;
/// a file system that can't hold nameless files gets it by its name at once, and a failure removes it.
Outcome WriteNewFile(const char *path, Bytes contents);
