// SPDX-License-Identifier: MIT
#include "MemberTable.h"
#include "ZulType.h"

namespace
{

/// The attribute with the name of the parent's member that a component is.
constexpr QByteArrayView MEMBER_ATTRIBUTE = "prop";

bool IsComposite(const CZulType &object)
{
    const qint32 id = object.GetTypeId();
    return id == TYPE_CLASS || id == TYPE_STRUCTURE;
}

void ApplyAttributes(CZulCustom &object)
{
    for (AttributeRecord &attribute : object.component->attributes) {
        if (attribute.name == MEMBER_ATTRIBUTE)
            object.propName = attribute.value;
        else if (CZulType *member = object.FindMember(attribute.name))
            member->BindAttribute(&attribute);
    }
}

void ApplyChildren(CZulCustom &object)
{
    static const NarrowText attribute = MEMBER_ATTRIBUTE.toByteArray();
    for (const auto &child : object.component->children) {
        const NarrowText &name = child->GetAttribute(attribute);
        CZulType *member = name.isEmpty() ? nullptr : object.FindMember(name);
        if (!member)
            object.AddSubComponent(child.get());
        else if (IsComposite(*member))
            BindComponent(static_cast<CZulCustom &>(*member), child.get());
    }
}

} // namespace

NarrowText CZulCustom::GetText() const
{
    return component ? NarrowText("{...}") : NarrowText();
}

int CZulCustom::Depth() const
{
    int depth = 0;
    for (const CZulCustom *above = owner; above && depth < DEEPEST_TYPE; above = above->owner)
        ++depth;
    return depth;
}

CZulType *CZulCustom::Member(size_t place) const
{
    if (members.empty())
        members.resize(table->Count());
    std::unique_ptr<CZulType> &member = members[place];
    if (!member) {
        const ClassDescriptor::Item &item = table->At(place);
        member = CreateType(catalogue, item.name, item.typeName, const_cast<CZulCustom *>(this));
    }
    return member.get();
}

const std::vector<std::unique_ptr<CZulType>> &CZulCustom::Members() const
{
    for (size_t i = 0; table && i < table->Count(); ++i)
        Member(i);
    return members;
}

CZulType *CZulCustom::FindMember(const NarrowText &name) const
{
    if (table) {
        const int place = table->PlaceOf(name);
        CZulType *const member = place < 0 ? nullptr : Member(size_t(place));
        return member && member->propName == name ? member : nullptr; // a component may have changed the name
    }
    for (const auto &member : members) {
        if (member->propName == name)
            return member.get();
    }
    return nullptr;
}

AttributeRecord *CZulCustom::AttributeForMember(CZulType *member)
{
    if (!component && owner)
        component = owner->ComponentForMember(this);
    // A member loses its name when its value is a component of its own. An attribute without a name would make the file
    // unreadable.
    if (!component || member->propName.isEmpty())
        return nullptr;
    return component->AddAttribute(member->propName, {});
}

ComponentObject *CZulCustom::ComponentForMember(CZulType *member)
{
    if (!component && owner)
        component = owner->ComponentForMember(this);
    if (!component)
        return nullptr;
    auto made = std::make_unique<ComponentObject>();
    made->className = member->typeName;
    made->AddAttribute(MEMBER_ATTRIBUTE.toByteArray(), member->propName);
    return component->children.emplace_back(std::move(made)).get();
}

bool CZulCustom::Define(const ClassDescriptor &definition)
{
    if (!descriptor)
        descriptor = &definition;
    typeName = definition.name;
    if (Depth() < DEEPEST_TYPE) {
        if (!definition.table)
            definition.table = std::make_shared<const MemberTable>(definition, catalogue);
        table = definition.table.get();
        members.clear();
    }
    return true;
}

bool BindComponent(CZulCustom &object, ComponentObject *component)
{
    if (!component || object.component)
        return false;
    object.component = component;
    object.typeName = component->className;
    object.propName = component->name;
    if (object.typeName.isEmpty())
        return false;
    if (!object.descriptor)
        return true;
    if (object.descriptor->name != object.typeName)
        return false;
    ApplyAttributes(object);
    ApplyChildren(object);
    return true;
}
