// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <limits>

/// Returns the 32-bit number that is nearest to `number`: `number` itself, or the smallest or largest 32-bit number.
[[nodiscard]] constexpr qint32 Nearest32(qint64 number)
{
    return qint32(
        qBound(qint64(std::numeric_limits<qint32>::min()), number, qint64(std::numeric_limits<qint32>::max())));
}
