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

/// The known resolutions of the process; a resolution index is a place in it.
class CResoTable
{
public:
    /// Appends, unless a size is below 1 or the pair is there. An empty name becomes "WxH".
    void Add(const NarrowText &name, int width, int height);
    /// The place of the pair, or -1.
    [[nodiscard]] qint16 IndexOf(int width, int height) const;
    /// The index must lie in the table.
    [[nodiscard]] const CResoEntry &At(int index) const { return entries.at(size_t(index)); }
    [[nodiscard]] int Count() const { return int(entries.size()); }

private:
    std::vector<CResoEntry> entries;
};
