// SPDX-License-Identifier: MIT
#include "CResoTable.h"

#include <charconv>
#include <iterator>
#include <limits>

namespace
{

NarrowText SizeText(int width, int height)
{
    char text[24];
    char *at = std::to_chars(text, std::end(text), width).ptr;
    *at++ = 'x';
    at = std::to_chars(at, std::end(text), height).ptr;
    return {text, at - text};
}

} // namespace

void CResoTable::Add(const NarrowText &name, int width, int height)
{
    constexpr int LARGEST = std::numeric_limits<qint16>::max();
    if (width <= 0 || height <= 0 || width > LARGEST || height > LARGEST || IndexOf(width, height) >= 0)
        return;
    entries.push_back({name.isEmpty() ? SizeText(width, height) : name, qint16(width), qint16(height)});
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
