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
    Natural, ///< in its own size, in the middle
    Stretch,
    Contain, ///< as large as there is room for, in its own proportions
    Tile,
};

/// A text of a component as the device shows it.
struct ShownText
{
    QString text;
    Qt::LayoutDirection direction = Qt::LeftToRight;
    std::optional<quint32> color; ///< 0x00BBGGRR; nothing when no property has one
    Qt::Alignment alignment = Qt::AlignCenter;
    int pixelSize = 0; ///< of the font; 0 when no property has one
    bool isBold = false;
    bool isItalic = false;
    bool wraps = false;

    bool operator==(const ShownText &) const = default;
};

/// What the preview draws of a component beside its frame when it draws pictures.
struct PreviewContent
{
    std::vector<NarrowText> images; ///< paths as the project stores them, in the order in which they are drawn
    ImageFit fit = ImageFit::Natural;
    std::optional<ShownText> text;
    quint8 backgroundAlpha = 255; ///< of the background's colour

    [[nodiscard]] bool IsEmpty() const { return images.empty() && !text; }
    bool operator==(const PreviewContent &) const = default;
};

/// Looks up what components refer to: texts in the first language of the project, and images of a resolution, or else
/// those for all.
///
/// What a property means follows from its type, since any catalogue may be in use: each reference to an image is drawn,
/// of an image with four states the normal one; the first text is shown, but not that of a component with others in
/// it; a colour in a group of properties, or one whose name begins with "text" or is "color", is that of the text; and
/// enumerators say where the text is ("left", "center", "right", "top", "middle", "bottom"), how it looks ("small",
/// "normal", "large", "huge", "bold", "italic", "wrap"), and how an image fills the component ("stretch", "contain",
/// "tile").
class PreviewContents
{
public:
    /// `resolution` is that of the layout. For the moment: it points to folders of the model.
    PreviewContents(CResModel &projectModel, qint32 resolution);

    /// Only values that are set count. What refers to an ID that isn't there is left out.
    [[nodiscard]] PreviewContent Of(const CZulClass &component) const;

private:
    struct Values;
    void Take(const CZulCustom &owner, bool isGroup, Values &values) const;
    void TakeValue(const CZulType &value, bool isGroup, Values &values) const;
    void TakeImage(const NarrowText &reference, PreviewContent &content) const;
    [[nodiscard]] std::optional<ShownText> TextOf(const NarrowText &reference) const;

    CResModel &model;
    const CResFolder *images = nullptr; // of the resolution; null when there is none
    const CResFolder *imagesOfAll = nullptr;
    const CResFolder *strings = nullptr;
    const CResFolder *language = nullptr; // the first
    qint16 scope;
};
