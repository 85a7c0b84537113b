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

/// Colours of a frame have the form 0x00BBGGRR, but for these two.
enum FrameColor : quint32
{
    FRAME_NO_PROPERTY = 0xFFFFFFFF, ///< -1: the class and its bases have no such property
    FRAME_NO_VALUE = 0xFF000000,    ///< the property isn't set
};

/// The properties that a frame is made of; not owned. Which they are follows from the component's class alone.
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

/// The components of a layout in the order in which they are painted: each before its sub-components. The memory of
/// `reused` is used again.
///
/// The entries point to the components and their values. Those of a layout whose tree has changed must not be
/// refreshed.
[[nodiscard]] PreviewEntries EntriesOf(const CLayoutRes &layout, PreviewEntries reused = {});

/// Works out rectangles and colours of the same entries again, after values have changed.
void Refresh(PreviewEntries &entries);
/// The same where only values of one component have changed: computes only that component and those below it.
void Refresh(PreviewEntries &entries, const CZulClass &changed);

/// Works out where a component is on the screen and its colours. Each output may be null. False, and nothing is
/// written, when all of them are or the component is. `border` keeps its value when the class has no such property.
///
/// The nearest class of the chain that has `pos` and `anchor` gives the rectangle, with its `size`. Without one, or
/// when that class has no `size`, the rectangle is empty, at the corner of the parent. An edge beyond 32 bits is at the
/// end of the range; the places of the sub-components are still exact.
bool GetComponentFrame(const CZulClass *object, PreviewRect *rect, quint32 *background, quint32 *border);

/// The entry of a component; null when there is none.
[[nodiscard]] const PreviewEntry *EntryOf(const PreviewEntries &entries, const CZulClass *component);
/// The end of the entries that are below one, in the tree of components.
[[nodiscard]] const PreviewEntry *EndBelow(const PreviewEntries &entries, const PreviewEntry &entry);

/// The topmost entry at a point in layout coordinates, or the topmost of those below `above`, which is an entry of the
/// list. Null when there is none.
[[nodiscard]] const PreviewEntry *EntryAt(const PreviewEntries &entries, qint32 x, qint32 y,
                                          const PreviewEntry *above = nullptr);

/// The entry below that of `picked` at a point. The topmost one after the lowest, and when `picked` isn't at the point.
/// Null when nothing is.
[[nodiscard]] const PreviewEntry *NextEntryAt(const PreviewEntries &entries, qint32 x, qint32 y,
                                              const CZulClass *picked);
