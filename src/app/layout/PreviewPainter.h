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
    QRect view;    ///< all that the view shows
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
    /// Belongs to the entries that are painted: reset with them.
    PreviewLabels labels;
    /// Draws images and texts; null for none. Not owned; belongs to the entries too.
    PreviewArt *art = nullptr;

    /// Paints what is in a region of the view; what isn't may be painted too. The painter has no clip of its own.
    void Paint(QPainter &painter, const PreviewScene &scene, const QRegion &region);

    /// All that the painting of an entry touches, as far as the view shows it.
    [[nodiscard]] QRect ExtentOf(const PreviewScene &scene, const PreviewEntry &entry) const;
    /// The outline of an entry that is selected.
    [[nodiscard]] static QRegion OutlineOf(const PreviewScene &scene, const PreviewEntry &entry);

private:
    struct Place;
    /// The places of the entries that a paint of a region can't leave out, in order.
    [[nodiscard]] std::vector<size_t> InSight(const PreviewScene &scene, const QRegion &region) const;
    void PaintEntry(QPainter &painter, const PreviewScene &scene, size_t entry, const Place &place);
    /// Returns whether the painting of an entry hides what is below it.
    [[nodiscard]] bool IsOpaque(const PreviewEntry &entry, size_t place) const;
    /// As the device shows it. False, and nothing is painted, when there is nothing to show.
    bool PaintArt(QPainter &painter, const PreviewScene &scene, size_t entry, const Place &place);
    void PaintLabel(QPainter &painter, const PreviewScene &scene, size_t entry, const Place &place, QColor fill);

    void PaintFrame(QPainter &painter, const QRect &screen, bool isActive) const;

    PreviewPictures pictures;
};
