#include "ZulType.h"

namespace
{

/// The attribute that says which member of its parent a component is.
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

CZulType *CZulCustom::FindMember(const NarrowText &name) const
{
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
    // A member has lost its name when its value came as a component of its own. Without one the file couldn't be read.
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
    members.reserve(std::min(definition.items.size(), size_t(MOST_VALUES)));
    for (const ClassDescriptor::Item &item : definition.items) {
        if (item.typeName == typeName || FindMember(item.name))
            continue; // it would hold itself; or the first of a name counts
        if (auto member = CreateOwned(catalogue, this, item.name, item.typeName))
            members.push_back(std::move(member));
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
