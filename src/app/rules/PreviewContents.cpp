// SPDX-License-Identifier: MIT
#include "PreviewContents.h"

#include "TextDirection.h"
#include "ZulValues.h"

namespace
{

constexpr int FOLDER_DEPTH = 2;

/// The meaning of an enumerator for a text or an image.
struct Word
{
    const char *word;
    void (*apply)(ShownText &style, ImageFit &fit);
};

void Align(ShownText &style, Qt::Alignment alignment, Qt::Alignment axis)
{
    style.alignment = (style.alignment & ~axis) | alignment;
}

constexpr Word WORDS[] = {
    {"left", [](ShownText &style, ImageFit &) { Align(style, Qt::AlignLeft, Qt::AlignHorizontal_Mask); }},
    {"center", [](ShownText &style, ImageFit &) { Align(style, Qt::AlignHCenter, Qt::AlignHorizontal_Mask); }},
    {"right", [](ShownText &style, ImageFit &) { Align(style, Qt::AlignRight, Qt::AlignHorizontal_Mask); }},
    {"top", [](ShownText &style, ImageFit &) { Align(style, Qt::AlignTop, Qt::AlignVertical_Mask); }},
    {"middle", [](ShownText &style, ImageFit &) { Align(style, Qt::AlignVCenter, Qt::AlignVertical_Mask); }},
    {"bottom", [](ShownText &style, ImageFit &) { Align(style, Qt::AlignBottom, Qt::AlignVertical_Mask); }},
    {"small", [](ShownText &style, ImageFit &) { style.pixelSize = 12; }},
    {"normal", [](ShownText &style, ImageFit &) { style.pixelSize = 16; }},
    {"large", [](ShownText &style, ImageFit &) { style.pixelSize = 24; }},
    {"huge", [](ShownText &style, ImageFit &) { style.pixelSize = 40; }},
    {"bold", [](ShownText &style, ImageFit &) { style.isBold = true; }},
    {"italic", [](ShownText &style, ImageFit &) { style.isItalic = true; }},
    {"wrap", [](ShownText &style, ImageFit &) { style.wraps = true; }},
    {"stretch", [](ShownText &, ImageFit &fit) { fit = ImageFit::Stretch; }},
    {"contain", [](ShownText &, ImageFit &fit) { fit = ImageFit::Contain; }},
    {"tile", [](ShownText &, ImageFit &fit) { fit = ImageFit::Tile; }},
};

/// The ID of a reference, "@" and its name; null if it isn't a reference or names no ID of the project.
const IDRecord *IdOf(CResModel &model, const NarrowText &reference, qint16 scope)
{
    return reference.startsWith('@') ? model.ids.Find(reference.mid(1), scope) : nullptr;
}

bool IsOfText(const CZulType &color, bool isInGroup)
{
    return isInGroup || color.propName == "color" || color.propName.startsWith("text");
}

} // namespace

struct PreviewContents::Values
{
    PreviewContent content;
    NarrowText reference; // to the text
    ShownText style;
};

PreviewContents::PreviewContents(CResModel &projectModel, qint32 resolution)
    : model(projectModel), scope(qint16(resolution))
{
    if (resolution >= 0)
        images = model.root.FindFolder(KIND_RESO_IMAGES, resolution, FOLDER_DEPTH);
    imagesOfAll = model.root.FindFolder(KIND_RESO_IMAGES, -1, FOLDER_DEPTH);
    strings = model.root.FindFolder(KIND_LANGUAGE, -1, FOLDER_DEPTH);
    const CResFolder *const languages = model.root.FindFolder(KIND_STRINGS, FOLDER_DEPTH);
    if (!languages)
        return;
    for (const auto &folder : languages->subfolders) {
        if (folder->kind == KIND_LANGUAGE && folder->index >= 0) {
            language = folder.get();
            return;
        }
    }
}

PreviewContent PreviewContents::Of(const CZulClass &component) const
{
    Values values;
    Take(component, /*isGroup=*/false, values);
    if (component.subComponents.empty() && !values.reference.isEmpty()) {
        if (const std::optional<ShownText> found = TextOf(values.reference)) {
            values.content.text = std::move(values.style);
            values.content.text->text = found->text;
            values.content.text->direction = found->direction;
        }
    }
    return std::move(values.content);
}

/// Goes through the attributes, which are the values that are set. It doesn't go through the members, because they are
/// made when they are requested.
void PreviewContents::Take(const CZulCustom &owner, bool isGroup, Values &values) const
{
    if (!owner.component)
        return;
    for (const AttributeRecord &attribute : owner.component->attributes) {
        if (const CZulType *const value = owner.FindMember(attribute.name))
            TakeValue(*value, isGroup, values);
    }
    if (isGroup)
        return; // a group in a group says nothing about how the component looks
    for (const auto &child : owner.component->children) {
        const NarrowText &name = child->GetAttribute("prop");
        const CZulType *const group = name.isEmpty() ? nullptr : owner.FindMember(name);
        if (group && group->GetTypeId() == TYPE_STRUCTURE)
            Take(static_cast<const CZulCustom &>(*group), /*isGroup=*/true, values);
    }
}

void PreviewContents::TakeValue(const CZulType &value, bool isGroup, Values &values) const
{
    switch (value.GetTypeId()) {
    case TYPE_IMAGE_SRC:
        return TakeImage(value.GetText(), values.content);
    case TYPE_STRUCTURE:
        if (const auto *const states = dynamic_cast<const CZulStateImg *>(&value))
            TakeImage(states->Members().front()->GetText(), values.content);
        return;
    case TYPE_WSTRING:
        if (values.reference.isEmpty())
            values.reference = value.GetText();
        return;
    case TYPE_COLOR: {
        const auto &color = static_cast<const CZulColor &>(value);
        if (IsOfText(color, isGroup))
            values.style.color = quint32(color.red) | quint32(color.green) << 8 | quint32(color.blue) << 16;
        else if (color.propName == "bgColor" && color.alpha != 0) // 0: the colour was given without alpha
            values.content.backgroundAlpha = color.alpha;
        return;
    }
    case TYPE_ENUM: {
        const NarrowText enumerator = value.GetText();
        for (const Word &word : WORDS) {
            if (enumerator == word.word)
                word.apply(values.style, values.content.fit);
        }
        return;
    }
    default:
        return;
    }
}

void PreviewContents::TakeImage(const NarrowText &reference, PreviewContent &content) const
{
    for (const auto &[folder, folderScope] : {std::pair(images, scope), {imagesOfAll, ANY_RESOLUTION}}) {
        const IDRecord *const id = folder ? IdOf(model, reference, folderScope) : nullptr;
        const auto *const image = id ? dynamic_cast<const CFileRes *>(folder->FindResource(id)) : nullptr;
        if (!image)
            continue;
        if (!image->path.isEmpty())
            content.images.push_back(image->path);
        return;
    }
}

std::optional<ShownText> PreviewContents::TextOf(const NarrowText &reference) const
{
    const IDRecord *const id = strings ? IdOf(model, reference, ANY_RESOLUTION) : nullptr;
    auto *const row = id ? dynamic_cast<CStringRes *>(strings->FindResource(id)) : nullptr;
    const CStringRes *const record = row && language ? row->FindLanguage(language->index) : nullptr;
    if (!record || !record->HasText())
        return std::nullopt;
    ShownText found;
    found.text = record->Text().toString();
    found.direction = DirectionOfLanguage(language->title);
    return found;
}
