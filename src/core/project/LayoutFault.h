// SPDX-License-Identifier: MIT
#pragma once

#include "Finding.h"

class Environment;

/// Returns why the layout file at the absolute path `file` doesn't load. `code` is the LayoutCode of its load, and
/// `loaded` is the number of layouts that were read before the fault. Reads the file again to find the line.
[[nodiscard]] Finding LayoutFault(const Environment &env, const QString &file, int code, int loaded);

/// Returns the row of a layout in its file. `place` is the layout's index, from 0. Returns 0 when the file has no such
/// layout.
[[nodiscard]] int RowOfLayout(const Environment &env, const QString &file, int place);
