// SPDX-License-Identifier: MIT
#pragma once

#include "LayoutFrames.h"
#include "PreviewLabels.h"
#include "PreviewPictures.h"

#include <QColor>
#include <QRegion>

class PreviewArt;
class PreviewZoom;

/// What a preview shows at the moment.
struct PreviewScene
{
    const PreviewEntries &entries;
    const PreviewZoom &zoom;
    QPoint corner; ///< of the screen, in pixels of the view
    QRect view;    ///< the whole visible area
    const CZulClass *selected = nullptr;
    bool isActive = false;
};

/// Paints the screen of a layout with its components, at a zoom.
class PreviewPainter
{
public:
    explicit PreviewPainter(const Environment &environment) : labels(environment) {}

    struct Look
    {
        QColor surround; ///< outside of the screen
        QColor focus;    ///< the line around the screen of the active view
    };
    Look look;
    /// The labels of the painted entries. They must be reset together with the entries.
    PreviewLabels labels;
    /// Draws images and texts; null for none. Not owned. It must be reset together with the entries too.
    PreviewArt *art = nullptr;

    /// Paints a region of the view; may also paint outside of the region. The painter must have no clip of its own.
    void Paint(QPainter &painter, const PreviewScene &scene, const QRegion &region);

    /// The area that painting an entry changes, as far as it is visible.
    [[nodiscard]] QRect ExtentOf(const PreviewScene &scene, const PreviewEntry &entry) const;
    /// The outline that an entry has when it is selected.
    [[nodiscard]] static QRegion OutlineOf(const PreviewScene &scene, const PreviewEntry &entry);

private:
    struct Place;
    /// The indexes of the entries that must be painted in a region, in ascending order.
    [[nodiscard]] std::vector<size_t> InSight(const PreviewScene &scene, const QRegion &region) const;
    void PaintEntry(QPainter &painter, const PreviewScene &scene, size_t entry, const Place &place);
    /// Returns whether the painting of an entry hides what is below it.
    [[nodiscard]] bool IsOpaque(const PreviewEntry &entry, size_t place) const;
    /// Paints an entry as the device shows it. If there is nothing to show, paints nothing and returns false.
    bool PaintArt(QPainter &painter, const PreviewScene &scene, size_t entry, const Place &place);
    void PaintLabel(QPainter &painter, const PreviewScene &scene, size_t entry, const Place &place, QColor fill);

    void PaintFrame(QPainter &painter, const QRect &screen, bool isActive) const;

    PreviewPictures pictures;
};
