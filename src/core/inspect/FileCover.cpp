// SPDX-License-Identifier: MIT
#include "FileCover.h"

#include <algorithm>

FileCover::FileCover(QByteArrayView bytes) : file(bytes)
{
    if (!file.isEmpty())
        gaps.emplace(0, quint64(file.size()));
}

QByteArray FileCover::Take(quint64 offset, quint64 size)
{
    const quint64 end = offset + std::min(size, quint64(file.size())); // offsets have 32 bits, so this can't overflow
    QByteArray taken;
    auto gap = gaps.upper_bound(offset);
    if (gap != gaps.begin())
        --gap;
    while (gap != gaps.end() && gap->first < end) {
        const auto [gapStart, gapEnd] = *gap;
        const quint64 from = std::max(offset, gapStart);
        const quint64 to = std::min(end, gapEnd);
        if (from >= to) {
            ++gap;
            continue;
        }
        const QByteArrayView piece = file.sliced(qsizetype(from), qsizetype(to - from));
        if (taken.isEmpty()) // most parts are one piece, which needs no copy
            taken = QByteArray::fromRawData(piece.data(), piece.size());
        else
            taken.append(piece);
        gap = gaps.erase(gap);
        if (gapStart < from)
            gaps.emplace(gapStart, from);
        if (to < gapEnd)
            gap = gaps.emplace(to, gapEnd).first;
    }
    return taken;
}
