// SPDX-License-Identifier: MIT
#pragma once

#include "HostFiles.h"
#include "PreviewContents.h"
#include "PreviewImages.h"

#include <memory>

class QPainter;

/// Draws the images and texts that components refer to, so that the preview looks as the device does. Keeps the content
/// of each painted entry, by the index of the entry in the list.
class PreviewArt
{
public:
    /// `loaded` is called after images have been loaded; everything must then be painted again.
    PreviewArt(CResModel &projectModel, std::function<void()> loaded);

    /// Starts again with `count` entries of a layout of that resolution.
    void Reset(size_t count, qint32 layoutResolution);
    /// Called after the values of an entry have changed.
    void Forget(size_t place) { contents.at(place).reset(); }
    /// Called when the files of images may have changed.
    void RefreshFiles();

    [[nodiscard]] const PreviewContent &Of(size_t place, const CZulClass &component);

    /// Draws the content of a component into its rectangle in the view, and nothing outside of the rectangle. `scale`
    /// is the size of a pixel of the device. Only the part of the rectangle within `view` has to be drawn.
    void Draw(QPainter &painter, const PreviewContent &content, const QRectF &rect, const QRect &view, qreal scale);

private:
    void DrawImage(QPainter &painter, const PreviewImages::Image &image, ImageFit fit, const QRectF &rect,
                   const QRect &view, qreal scale) const;
    void DrawText(QPainter &painter, const ShownText &text, const QRectF &rect, qreal scale) const;
    [[nodiscard]] const PreviewImages::Image &ImageOf(const NarrowText &path);

    CResModel &model;
    qint32 resolution = -1;
    std::vector<std::unique_ptr<PreviewContent>> contents; // null if it isn't looked up yet
    PreviewImages images;
    std::unique_ptr<HostPaths> paths;       // listings of folders
    QHash<NarrowText, QByteArray> hostPath; // by the path that the project stores
};
