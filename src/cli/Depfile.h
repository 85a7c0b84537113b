// SPDX-License-Identifier: MIT
#pragma once

#include "Text.h"

#include <vector>

/// Writes a dependency file in make's format: `target: input input ...`, each input once, in byte order. Returns an
/// empty text, or one sentence that says what is wrong: the file can't be written, or a name has a character that the
/// format can't express.
[[nodiscard]] QString WriteDepfile(const QString &path, const QByteArray &target, std::vector<QByteArray> inputs);
