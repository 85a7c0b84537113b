#pragma once

#include "Text.h"

#include <vector>

/// Writes a dependency file in the form of make: `target: input input ...`, each once, in byte order. Empty, or what is
/// wrong, in a sentence: the file can't be written, or a name has a character that the form has no way to write.
[[nodiscard]] QString WriteDepfile(const QString &path, const QByteArray &target, std::vector<QByteArray> inputs);
