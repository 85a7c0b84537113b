#pragma once

#include "Text.h"

class CResModel;

/// Reads a project's string file into the tree. 0, or the code of the failure (110 can't be opened, 1012 a line can't
/// be read, 11 wrong header, 1608 unknown language); what was read by then stays in the tree.
[[nodiscard]] int ReadStringFile(const QString &path, CResModel &document);

/// Writes the string file from the tree. 0, 110 when it can't be opened, 1013 when a write falls short; the old file
/// stays as it was on a failure.
[[nodiscard]] int WriteStringFile(const QString &path, CResModel &document);
