// SPDX-License-Identifier: MIT
#pragma once

#include "HostFiles.h"

class CResModel;

/// Reads a project's string file into the tree. Returns 0, or the code of the failure: 110 the file can't be opened,
/// 1012 a line can't be read, 11 wrong header, 1608 unknown language. What was read before the failure stays in the
/// tree.
[[nodiscard]] int ReadStringFile(const QString &path, CResModel &document);

/// Writes the string file from the tree. Returns 0, 110 when the file can't be opened, or 1013 when writing it fails.
/// On failure the old file is unchanged.
[[nodiscard]] int WriteStringFile(const QString &path, CResModel &document);

/// Makes the content that WriteStringFile writes (FilePieces). Returns 0, EOVERFLOW for more than 1 GiB, or an error of
/// `put`.
[[nodiscard]] int PutStringFile(const CResModel &document, const PutPiece &put);
