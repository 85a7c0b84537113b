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
    /// The resolution of an index; one without a name and a size for an index that isn't in the table.
    [[nodiscard]] const CResoEntry &At(int index) const;
    [[nodiscard]] int Count() const { return int(entries.size()); }

private:
    std::vector<CResoEntry> entries;
};
