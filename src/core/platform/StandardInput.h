// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

/// Reads standard input to its end. Returns 0, or the system's error number (EFBIG if it has more than `limit` bytes).
[[nodiscard]] int ReadStandardInput(QByteArray &bytes, qint64 limit);
