// SPDX-License-Identifier: MIT
#include "ZulValues.h"

namespace
{

struct BuiltInType
{
    QByteArrayView name;
    TypeId id;
};

constexpr BuiltInType BUILT_IN[] = {
    {"ZulBool", TYPE_BOOL},
    {"ZulFloat", TYPE_FLOAT},
    {"ZulS32", TYPE_S32},
    {"ZulU32", TYPE_U32},
    {"ZulId", TYPE_U32},
    {"ZulMsec", TYPE_MSEC},
    {"ZulColor", TYPE_COLOR},
    {"ZulPoint", TYPE_POINT},
    {"ZulSize", TYPE_SIZE},
    {"ZulRect", TYPE_RECT},
    {"ZulFPoint", TYPE_FPOINT},
    {"ZulResId", TYPE_RES_ID},
    {"ZulWString", TYPE_WSTRING},
    {"ZulImageSrc", TYPE_IMAGE_SRC},
    {"ZrpStateImage", TYPE_STATE_IMAGE},
};

std::unique_ptr<CZulType> CreateBuiltIn(const ClassCatalogue &catalogue, qint32 id)
{
    switch (id) {
    case TYPE_BOOL:
        return std::make_unique<CZulBool>();
    case TYPE_FLOAT:
        return std::make_unique<CZulFloat>();
    case TYPE_S32:
        return std::make_unique<CZulS32>();
    case TYPE_U32:
        return std::make_unique<CZulU32>();
    case TYPE_MSEC:
        return std::make_unique<CZulMsec>();
    case TYPE_COLOR:
        return std::make_unique<CZulColor>();
    case TYPE_POINT:
        return std::make_unique<CZulPoint>();
    case TYPE_SIZE:
        return std::make_unique<CZulSize>();
    case TYPE_RECT:
        return std::make_unique<CZulRect>();
    case TYPE_FPOINT:
        return std::make_unique<CZulFPoint>();
    case TYPE_RES_ID:
    case TYPE_WSTRING:
    case TYPE_IMAGE_SRC:
        return std::make_unique<CZulResId>();
    default:
        return std::make_unique<CZulStateImg>(catalogue);
    }
}

} // namespace

qint32 TypeIdOf(const NarrowText &typeName)
{
    if (!typeName.startsWith('Z'))
        return TYPE_UNKNOWN;
    for (const BuiltInType &type : BUILT_IN) {
        if (type.name == typeName)
            return type.id;
    }
    return TYPE_UNKNOWN;
}

qint32 CZulBase::GetTypeId() const
{
    return TypeIdOf(typeName);
}

bool CZulBase::BindAttribute(AttributeRecord *record)
{
    if (!record || record == attr)
        return true;
    attr = record;
    const NarrowText text = record->value;
    SetText(text);
    return true;
}

void CZulBase::SetText(const NarrowText &text)
{
    if (!attr && owner)
        attr = owner->AttributeForMember(this);
    if (!attr || attr->value == text)
        return;
    attr->value = text;
    if (owner)
        owner->OnMemberChanged(this);
}

std::unique_ptr<CZulType> CreateType(const ClassCatalogue &catalogue, const NarrowText &propName,
                                     const NarrowText &typeName, CZulCustom *owner)
{
    std::unique_ptr<CZulType> object;
    const ClassDescriptor *definition = nullptr;
    if (const qint32 id = TypeIdOf(typeName); id != TYPE_UNKNOWN)
        object = CreateBuiltIn(catalogue, id);
    else if (definition = catalogue.Find(typeName); !definition || definition->kind == CLASS_CLASS)
        object = std::make_unique<CZulClass>(catalogue);
    else if (definition->kind == CLASS_STRUCTURE)
        object = std::make_unique<CZulStruct>(catalogue);
    else if (definition->kind == CLASS_ENUMERATION)
        object = std::make_unique<CZulEnum>(definition);
    else
        return nullptr;
    object->typeName = typeName;
    object->propName = propName;
    object->owner = owner;
    if (definition && definition->kind != CLASS_ENUMERATION &&
        !static_cast<CZulCustom &>(*object).Define(*definition)) {
        return nullptr;
    }
    return object;
}
