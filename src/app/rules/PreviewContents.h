// SPDX-License-Identifier: MIT
#pragma once

#include "ResModel.h"

#include <Qt>

#include <optional>
#include <vector>

class CZulClass;
class CZulCustom;
class CZulType;

/// How an image fills its component.
enum class ImageFit
{
    Natural, ///< in its own size, centred
    Stretch,
    Contain, ///< as large as fits, with its own proportions
    Tile,
};

/// A text of a component as the device shows it.
struct ShownText
{
    QString text;
    Qt::LayoutDirection direction = Qt::LeftToRight;
    std::optional<quint32> color; ///< 0x00BBGGRR; nothing if no property has one
    Qt::Alignment alignment = Qt::AlignCenter;
    int pixelSize = 0; ///< of the font; 0 if no property has one
    bool isBold = false;
    bool isItalic = false;
    bool wraps = false;

    bool operator==(const ShownText &) const = default;
};

/// What the preview draws of a component, in addition to its frame, if it draws pictures.
struct PreviewContent
{
    std::vector<NarrowText> images; ///< paths as the project stores them, in the order in which they are drawn
    ImageFit fit = ImageFit::Natural;
    std::optional<ShownText> text;
    quint8 backgroundAlpha = 255; ///< of the background's colour

    [[nodiscard]] bool IsEmpty() const { return images.empty() && !text; }
    bool operator==(const PreviewContent &) const = default;
};

/// Looks up the texts and images that components refer to. Texts are in the project's first language. Images are those
/// of a resolution, or else those for all resolutions.
///
/// The meaning of a property follows from its type, since any catalogue may be in use. Each reference to an image is
/// drawn; of an image with four states, the normal one. The first text is shown, but not that of a component that
/// contains others. A colour in a group of properties, or one whose name begins with "text" or is "color", is that of
/// the text. Enumerators say where the text is ("left", "center", "right", "top", "middle", "bottom"), how it looks
/// ("small", "normal", "large", "huge", "bold", "italic", "wrap"), and how an image fills the component ("stretch",
/// "contain", "tile").
class PreviewContents
{
public:
    /// `resolution` is that of the layout. The object is short-lived: it has pointers to folders of the model.
    PreviewContents(CResModel &projectModel, qint32 resolution);

    /// The content of a component. Uses only values that are set. References to IDs that don't exist are left out.
    [[nodiscard]] PreviewContent Of(const CZulClass &component) const;

private:
    struct Values;
    void Take(const CZulCustom &owner, bool isGroup, Values &values) const;
    void TakeValue(const CZulType &value, bool isGroup, Values &values) const;
    void TakeImage(const NarrowText &reference, PreviewContent &content) const;
    [[nodiscard]] std::optional<ShownText> TextOf(const NarrowText &reference) const;

    CResModel &model;
    const CResFolder *images = nullptr; // of the resolution; null if there is none
    const CResFolder *imagesOfAll = nullptr;
    const CResFolder *strings = nullptr;
    const CResFolder *language = nullptr; // the project's first
    qint16 scope;
};
