#pragma once

#include "Text.h"

#include <vector>

/// Writes a dependency file in the form of make: `target: input input ...`, each once, in byte order. 0, or the
/// system's error number.
[[nodiscard]] int WriteDepfile(const QString &path, const QByteArray &target, std::vector<QByteArray> inputs);
