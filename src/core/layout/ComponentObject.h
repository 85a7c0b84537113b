// SPDX-License-Identifier: MIT
#pragma once

#include "Text.h"

#include <list>
#include <memory>
#include <vector>

/// A property as the layout file has it.
struct AttributeRecord
{
    NarrowText name;
    NarrowText value;
};

/// A component of a layout as the layout file has it. Owns its sub-components.
///
/// This tree is what a save writes. The typed objects (ZulType.h) point to its records and write to them, so a record
/// keeps its address as long as its component lives.
class ComponentObject
{
public:
    NarrowText className;
    NarrowText name; ///< unique in its layout, or empty
    std::list<AttributeRecord> attributes;
    std::vector<std::unique_ptr<ComponentObject>> children;

    /// The value of the first attribute with that name, or an empty text.
    [[nodiscard]] const NarrowText &GetAttribute(const NarrowText &attribute) const;
    /// Appends a record without checking the existing ones.
    AttributeRecord *AddAttribute(const NarrowText &attribute, const NarrowText &value);
};
