// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <vector>

class CLayoutRes;
class CZulClass;
class CZulColor;
class CZulFPoint;
class CZulPoint;
class CZulSize;

/// A rectangle in pixels of the screen at 100 %. The right and bottom edges are outside of it.
struct PreviewRect
{
    qint32 left = 0;
    qint32 top = 0;
    qint32 right = 0;
    qint32 bottom = 0;

    [[nodiscard]] bool Contains(qint32 x, qint32 y) const { return x >= left && x < right && y >= top && y < bottom; }
    bool operator==(const PreviewRect &) const = default;
};

/// Colours of a frame have the form 0x00BBGGRR, except for these two values.
enum FrameColor : quint32
{
    FRAME_NO_PROPERTY = 0xFFFFFFFF, ///< -1: the class and its bases have no such property
    FRAME_NO_VALUE = 0xFF000000,    ///< the property isn't set
};

/// The properties that determine a frame; not owned. They depend only on the component's class.
struct FrameSources
{
    const CZulPoint *pos = nullptr; ///< null when the class gives no rectangle; then `size` and `anchor` are null too
    const CZulSize *size = nullptr;
    const CZulFPoint *anchor = nullptr;
    const CZulColor *background = nullptr; ///< null when there is no such property
    const CZulColor *border = nullptr;     ///< as `background`
};

/// A component as the preview paints it.
struct PreviewEntry
{
    CZulClass *component = nullptr; ///< not owned; an entry without one is not refreshed and can't be hit
    PreviewRect rect;               ///< from the screen's corner, parents included
    quint32 background = FRAME_NO_PROPERTY;
    quint32 border = 0;
    int depth = 0; ///< the number of its parents, up to the top level
    FrameSources sources;
};

using PreviewEntries = std::vector<PreviewEntry>;

/// The components of a layout in the order in which they are painted: each before its sub-components. Reuses the memory
/// of `reused`.
///
/// The entries have pointers to the components and their values. They must not be refreshed after the layout's tree has
/// changed.
[[nodiscard]] PreviewEntries EntriesOf(const CLayoutRes &layout, PreviewEntries reused = {});

/// Computes the rectangles and colours of the entries again, after values have changed.
void Refresh(PreviewEntries &entries);
/// The same after only values of one component have changed: computes only that component and those below it.
void Refresh(PreviewEntries &entries, const CZulClass &changed);

/// Computes the rectangle of a component on the screen and its colours. Each output may be null. If all outputs are
/// null, or the component is, writes nothing and returns false. `border` keeps its value if the class has no such
/// property.
///
/// The rectangle is that of the nearest class of the chain that has `pos` and `anchor`, with its `size`. Without such a
/// class, or if that class has no `size`, the rectangle is empty, at the corner of the parent. An edge beyond 32 bits
/// is moved to the end of the range; the places of the sub-components are still exact.
bool GetComponentFrame(const CZulClass *object, PreviewRect *rect, quint32 *background, quint32 *border);

/// The entry of a component; null when there is none.
[[nodiscard]] const PreviewEntry *EntryOf(const PreviewEntries &entries, const CZulClass *component);
/// The end of the entries that are below an entry in the tree of components.
[[nodiscard]] const PreviewEntry *EndBelow(const PreviewEntries &entries, const PreviewEntry &entry);

/// The topmost entry at a point in layout coordinates, or the topmost of those below `above`, which is an entry of the
/// list. Null when there is none.
[[nodiscard]] const PreviewEntry *EntryAt(const PreviewEntries &entries, qint32 x, qint32 y,
                                          const PreviewEntry *above = nullptr);

/// The entry below that of `picked` at a point. The topmost entry if `picked` is the lowest one or isn't at the point.
/// Null if no entry is at the point.
[[nodiscard]] const PreviewEntry *NextEntryAt(const PreviewEntries &entries, qint32 x, qint32 y,
                                              const CZulClass *picked);
