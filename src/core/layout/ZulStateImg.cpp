// SPDX-License-Identifier: MIT
#include "ZulValues.h"

namespace
{

constexpr qsizetype SHORTEST = 5; // "(,,,)"

void SkipBlanks(QByteArrayView &text)
{
    while (text.startsWith(' '))
        text = text.sliced(1);
}

/// Removes the parentheses around a text, and blanks before them. Returns false if it has none.
bool TakeParentheses(QByteArrayView &text)
{
    SkipBlanks(text);
    if (text.size() < SHORTEST || text[0] != '(' || text.back() != ')')
        return false;
    text = text.sliced(1).chopped(1);
    return true;
}

} // namespace

CZulStateImg::CZulStateImg(const ClassCatalogue &types) : CZulStruct(types)
{
    // The texts are shared by all objects.
    static const std::array<NarrowText, 4> names{"normalId", "pressedId", "disabledId", "highlightId"};
    static const NarrowText ownType("ZrpStateImage");
    static const NarrowText imageType("ZulImageSrc");
    static const NarrowText unset("0");
    typeName = ownType;
    members.reserve(records.size());
    for (size_t i = 0; i < records.size(); ++i) {
        records[i] = {names[i], unset};
        auto image = std::make_unique<CZulResId>();
        image->typeName = imageType;
        image->propName = names[i];
        image->owner = this;
        members.push_back(std::move(image));
    }
}

AttributeRecord *CZulStateImg::AttributeForMember(CZulType *member)
{
    for (size_t i = 0; i < members.size(); ++i) {
        if (members[i].get() == member)
            return &records[i];
    }
    return nullptr;
}

void CZulStateImg::OnMemberChanged(CZulType *)
{
    if (parsing)
        return; // the text that is being parsed isn't changed
    if (!attr && owner)
        attr = owner->AttributeForMember(this);
    if (!attr)
        return;
    NarrowText text;
    for (const auto &member : members) {
        const NarrowText image = member->GetText();
        text += text.isEmpty() ? '(' : ',';
        text += image.isEmpty() ? NarrowText("0") : image;
    }
    attr->value = text + ')';
}

bool CZulStateImg::BindAttribute(AttributeRecord *record)
{
    if (!record || record == attr)
        return true;
    parsing = true;
    Parse(record->value);
    parsing = false;
    attr = record;
    return true;
}

bool CZulStateImg::IsComplete(QByteArrayView text)
{
    return TakeParentheses(text) && text.count(',') == 3;
}

void CZulStateImg::Parse(QByteArrayView text)
{
    if (!TakeParentheses(text))
        return;
    for (size_t i = 0; i < members.size(); ++i) {
        const bool isLast = i + 1 == members.size();
        const qsizetype comma = isLast ? text.size() : text.indexOf(',');
        if (comma < 0)
            return;
        QByteArrayView token = text.first(comma);
        SkipBlanks(token);
        if (const qsizetype blank = token.indexOf(' '); blank >= 0)
            token = token.first(blank);
        if (!token.isEmpty())
            static_cast<CZulBase &>(*members[i]).SetText(token.toByteArray());
        if (!isLast)
            text = text.sliced(comma + 1);
    }
}
