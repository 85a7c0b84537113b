// SPDX-License-Identifier: MIT
#include "LayoutFrames.h"

#include "CLayoutRes.h"
#include "Nearest32.h"
#include "ZulValues.h"

#include <algorithm>
#include <cmath>

namespace
{

/// A rectangle that can't overflow: each level adds at most 33 bits.
struct WideRect
{
    qint64 left = 0;
    qint64 top = 0;
    qint64 right = 0;
    qint64 bottom = 0;

    void Move(qint64 x, qint64 y)
    {
        left += x;
        right += x;
        top += y;
        bottom += y;
    }
    [[nodiscard]] PreviewRect Narrow() const
    {
        return {Nearest32(left), Nearest32(top), Nearest32(right), Nearest32(bottom)};
    }
};

struct Corner
{
    qint64 left = 0;
    qint64 top = 0;
};

template <typename Value> const Value *OwnMember(const CZulClass &level, const NarrowText &name, TypeId type)
{
    // CZulClass::FindMember would also look into the base class.
    const CZulType *member = level.CZulCustom::FindMember(name);
    return member && member->GetTypeId() == type ? static_cast<const Value *>(member) : nullptr;
}

/// Sets the sources of the rectangle. Returns false if this level doesn't have both `pos` and `anchor`.
bool FindRect(const CZulClass &level, FrameSources &sources)
{
    static const NarrowText posName("pos");
    static const NarrowText sizeName("size");
    static const NarrowText anchorName("anchor");
    const auto *pos = OwnMember<CZulPoint>(level, posName, TYPE_POINT);
    const auto *anchor = pos ? OwnMember<CZulFPoint>(level, anchorName, TYPE_FPOINT) : nullptr;
    if (!anchor)
        return false;
    if (const auto *size = OwnMember<CZulSize>(level, sizeName, TYPE_SIZE)) {
        sources.pos = pos;
        sources.size = size;
        sources.anchor = anchor;
    }
    return true;
}

FrameSources SourcesOf(const CZulClass &object)
{
    static const NarrowText backgroundName("bgColor");
    static const NarrowText borderName("borderColor");
    FrameSources sources;
    bool isRectKnown = false;
    for (const CZulClass *level = &object; level; level = level->super.get()) {
        if (!sources.background)
            sources.background = OwnMember<CZulColor>(*level, backgroundName, TYPE_COLOR);
        if (!sources.border)
            sources.border = OwnMember<CZulColor>(*level, borderName, TYPE_COLOR);
        isRectKnown = isRectKnown || FindRect(*level, sources);
        if (isRectKnown && sources.background && sources.border)
            break;
    }
    return sources;
}

/// The part of a size before the anchor, rounded toward zero.
qint64 PartOf(qint32 size, float anchor)
{
    if (!(anchor > 0)) // also true for NaN
        return 0;
    if (anchor >= 1)
        return size;
    // The result is rounded to the precision of the anchor: 0.7 of 10 is 7, although the anchor is a little less than
    // 0.7. Above this limit that precision is coarser than a pixel.
    constexpr double LIMIT = 1 << 24;
    const double part = double(size) * double(anchor);
    return qint64(std::abs(part) < LIMIT ? double(float(part)) : part);
}

/// Relative to the parent's corner.
WideRect OwnRect(const FrameSources &sources)
{
    WideRect rect;
    if (!sources.pos)
        return rect;
    rect.left = sources.pos->x - PartOf(sources.size->width, sources.anchor->x);
    rect.top = sources.pos->y - PartOf(sources.size->height, sources.anchor->y);
    rect.right = rect.left + sources.size->width;
    rect.bottom = rect.top + sources.size->height;
    return rect;
}

quint32 ColorOf(const CZulColor &color)
{
    if (!color.attr)
        return FRAME_NO_VALUE;
    return quint32(color.red) | quint32(color.green) << 8 | quint32(color.blue) << 16;
}

/// `corners` has the corners of the parents of the entry, outermost first; the function adds that of the entry.
void Update(PreviewEntry &entry, std::vector<Corner> &corners)
{
    const FrameSources &sources = entry.sources;
    WideRect rect = OwnRect(sources);
    const auto depth = size_t(entry.depth);
    if (depth > 0)
        rect.Move(corners[depth - 1].left, corners[depth - 1].top);
    if (corners.size() <= depth)
        corners.resize(depth + 1);
    corners[depth] = {rect.left, rect.top};
    entry.rect = rect.Narrow();
    if (sources.background)
        entry.background = ColorOf(*sources.background);
    if (sources.border)
        entry.border = ColorOf(*sources.border);
}

} // namespace

PreviewEntries EntriesOf(const CLayoutRes &layout, PreviewEntries reused)
{
    struct Level
    {
        const std::vector<std::unique_ptr<CZulClass>> *objects;
        size_t next = 0;
    };
    reused.clear();
    std::vector<Level> levels = {{&layout.Components()}}; // no recursion: a layout may nest to any depth
    std::vector<Corner> corners;
    while (!levels.empty()) {
        Level &level = levels.back();
        if (level.next == level.objects->size()) {
            levels.pop_back();
            continue;
        }
        PreviewEntry &entry = reused.emplace_back();
        entry.component = (*level.objects)[level.next++].get();
        entry.depth = int(levels.size()) - 1;
        entry.sources = SourcesOf(*entry.component);
        Update(entry, corners);
        levels.push_back({&entry.component->subComponents});
    }
    return reused;
}

void Refresh(PreviewEntries &entries)
{
    std::vector<Corner> corners;
    for (PreviewEntry &entry : entries) {
        if (entry.component)
            Update(entry, corners);
    }
}

void Refresh(PreviewEntries &entries, const CZulClass &changed)
{
    const PreviewEntry *const first = EntryOf(entries, &changed);
    if (!first)
        return;
    PreviewEntry *const found = entries.data() + (first - entries.data());
    std::vector<Corner> corners(size_t(found->depth));
    // Its parents are the nearest entries before it with a lower depth.
    int depth = found->depth;
    for (const PreviewEntry *before = found; depth > 0; --before) {
        if (before->depth >= depth)
            continue;
        const WideRect rect = OwnRect(before->sources);
        corners.back().left += rect.left;
        corners.back().top += rect.top;
        depth = before->depth;
    }
    const PreviewEntry *const end = EndBelow(entries, *found);
    for (PreviewEntry *entry = found; entry != end; ++entry) {
        if (entry->component)
            Update(*entry, corners);
    }
}

bool GetComponentFrame(const CZulClass *object, PreviewRect *rect, quint32 *background, quint32 *border)
{
    if (!object || (!rect && !background && !border))
        return false;
    const FrameSources sources = SourcesOf(*object);
    if (background)
        *background = sources.background ? ColorOf(*sources.background) : FRAME_NO_PROPERTY;
    if (border && sources.border)
        *border = ColorOf(*sources.border);
    if (!rect)
        return true;
    WideRect wide = OwnRect(sources);
    for (const CZulClass *parent = object->parent; parent; parent = parent->parent) {
        const WideRect above = OwnRect(SourcesOf(*parent));
        wide.Move(above.left, above.top);
    }
    *rect = wide.Narrow();
    return true;
}

const PreviewEntry *EntryOf(const PreviewEntries &entries, const CZulClass *component)
{
    const auto isIt = [component](const PreviewEntry &entry) { return entry.component == component; };
    const auto found = std::find_if(entries.begin(), entries.end(), isIt);
    return component && found != entries.end() ? &*found : nullptr;
}

const PreviewEntry *EndBelow(const PreviewEntries &entries, const PreviewEntry &entry)
{
    const auto isBeside = [&entry](const PreviewEntry &other) { return other.depth <= entry.depth; };
    return std::find_if(&entry + 1, entries.data() + entries.size(), isBeside);
}

const PreviewEntry *EntryAt(const PreviewEntries &entries, qint32 x, qint32 y, const PreviewEntry *above)
{
    const PreviewEntry *entry = above ? above : entries.data() + entries.size();
    while (entry != entries.data()) {
        --entry;
        if (entry->component && entry->rect.Contains(x, y))
            return entry;
    }
    return nullptr;
}

const PreviewEntry *NextEntryAt(const PreviewEntries &entries, qint32 x, qint32 y, const CZulClass *picked)
{
    const PreviewEntry *const top = EntryAt(entries, x, y);
    for (const PreviewEntry *hit = top; hit; hit = EntryAt(entries, x, y, hit)) {
        if (hit->component != picked)
            continue;
        const PreviewEntry *const below = EntryAt(entries, x, y, hit);
        return below ? below : top;
    }
    return top;
}
