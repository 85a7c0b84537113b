// SPDX-License-Identifier: MIT
#pragma once

#include "HostFiles.h"
#include "PreviewContents.h"
#include "PreviewImages.h"

#include <memory>

class QPainter;

/// Draws the images and texts that components refer to, so that the preview looks as the device does. It belongs to the
/// entries that are painted, by their place in the list.
class PreviewArt
{
public:
    /// `loaded` is told after images have been loaded: then all is to be painted again.
    PreviewArt(CResModel &projectModel, std::function<void()> loaded);

    /// Begins anew with a number of entries of a layout of that resolution.
    void Reset(size_t count, qint32 layoutResolution);
    /// The values of an entry have changed.
    void Forget(size_t place) { contents.at(place).reset(); }
    /// The files of images may have changed.
    void RefreshFiles();

    [[nodiscard]] const PreviewContent &Of(size_t place, const CZulClass &component);

    /// Draws the content of a component into its rectangle in the view, and nothing outside of it. `scale` is the size
    /// of a pixel of the device. Of the rectangle only what is within `view` has to be drawn.
    void Draw(QPainter &painter, const PreviewContent &content, const QRectF &rect, const QRect &view, qreal scale);

private:
    void DrawImage(QPainter &painter, const PreviewImages::Image &image, ImageFit fit, const QRectF &rect,
                   const QRect &view, qreal scale) const;
    void DrawText(QPainter &painter, const ShownText &text, const QRectF &rect, qreal scale) const;
    [[nodiscard]] const PreviewImages::Image &ImageOf(const NarrowText &path);

    CResModel &model;
    qint32 resolution = -1;
    std::vector<std::unique_ptr<PreviewContent>> contents; // null where it isn't looked up yet
    PreviewImages images;
    std::unique_ptr<HostPaths> paths;       // listings of folders
    QHash<NarrowText, QByteArray> hostPath; // of the path that the project stores
};
