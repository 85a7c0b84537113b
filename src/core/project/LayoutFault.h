#pragma once

#include "Finding.h"

class Environment;

/// Why the layout file at the absolute path `file` doesn't load. `code` is the LayoutCode of its load, `loaded` how
/// many layouts were read by then. Reads the file again for the line.
[[nodiscard]] Finding LayoutFault(const Environment &env, const QString &file, int code, int loaded);

/// The row of a layout in its file, by its place from 0; 0 when the file has no such layout.
[[nodiscard]] int RowOfLayout(const Environment &env, const QString &file, int place);
