#pragma once

#include <QtGlobal>

#include <limits>

/// The number of 32 bits that is nearest to the given one: itself, or the end of the range that it is beyond.
[[nodiscard]] constexpr qint32 Nearest32(qint64 number)
{
    return qint32(
        qBound(qint64(std::numeric_limits<qint32>::min()), number, qint64(std::numeric_limits<qint32>::max())));
}
