// SPDX-License-Identifier: MIT
#include "CResoTable.h"

#include <limits>

void CResoTable::Add(const NarrowText &name, int width, int height)
{
    constexpr int LARGEST = std::numeric_limits<qint16>::max();
    if (width <= 0 || height <= 0 || width > LARGEST || height > LARGEST || IndexOf(width, height) >= 0)
        return;
    const NarrowText size = QByteArray::number(width) + 'x' + QByteArray::number(height);
    entries.push_back({name.isEmpty() ? size : name, qint16(width), qint16(height)});
}

const CResoEntry &CResoTable::At(int index) const
{
    static const CResoEntry none{};
    return index >= 0 && index < Count() ? entries[size_t(index)] : none;
}

qint16 CResoTable::IndexOf(int width, int height) const
{
    for (size_t i = 0; i < entries.size(); ++i) {
        if (entries[i].width == width && entries[i].height == height)
            return qint16(i);
    }
    return -1;
}
