// SPDX-License-Identifier: MIT
#pragma once

#include "Text.h"

#include <vector>

/// A known screen size, in pixels.
struct CResoEntry
{
    NarrowText name;
    qint16 width;
    qint16 height;
};

/// The known resolutions of the process. A resolution index is an index into this table.
class CResoTable
{
public:
    /// Appends a resolution. Does nothing if a size is below 1 or above 32767, or if the table has that width and
    /// height already. An empty name becomes "WxH".
    void Add(const NarrowText &name, int width, int height);
    /// Returns the index of that width and height, or -1.
    [[nodiscard]] qint16 IndexOf(int width, int height) const;
    /// Returns the resolution of an index. For an index outside the table its name is empty and its size is 0.
    [[nodiscard]] const CResoEntry &At(int index) const;
    [[nodiscard]] int Count() const { return int(entries.size()); }

private:
    std::vector<CResoEntry> entries;
};
