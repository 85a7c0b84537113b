// SPDX-License-Identifier: MIT
#pragma once

#include "Buffer.h"
#include "Outcome.h"

/// Reads a whole regular file of at most 512 MiB.
Outcome ReadFile(const char *path, Buffer &contents);

/// Removes a file that an earlier run left at `target`, even if it is read-only. Fails, and removes nothing, if it is a
/// folder, a device or the like, or if `target` is `source` itself. Succeeds if there is no such file.
Outcome RemoveOldTarget(const char *source, const char *target);

/// Writes a new file. It gets its name only once it is complete, so that a failure or a sudden end leaves no partial
/// file. On a file system without nameless files it has its name from the start, and a failure removes it.
Outcome WriteNewFile(const char *path, Bytes contents);
