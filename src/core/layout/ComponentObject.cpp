// SPDX-License-Identifier: MIT
#include "ComponentObject.h"

const NarrowText &ComponentObject::GetAttribute(const NarrowText &attribute) const
{
    static const NarrowText none;
    for (const AttributeRecord &record : attributes) {
        if (record.name == attribute)
            return record.value;
    }
    return none;
}

AttributeRecord *ComponentObject::AddAttribute(const NarrowText &attribute, const NarrowText &value)
{
    return &attributes.emplace_back(AttributeRecord{attribute, value});
}
