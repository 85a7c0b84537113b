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

/// A component of a layout as the layout file has it. Owns the components below it.
///
/// This tree is what is saved; the typed objects (ZulTypes.h) point into it and write into it. So a record stays where
/// it is as long as its component lives.
class ComponentObject
{
public:
    NarrowText className;
    NarrowText name; ///< unique in its layout, or empty
    std::list<AttributeRecord> attributes;
    std::vector<std::unique_ptr<ComponentObject>> children;

    /// The value of the first attribute of that name, or the empty text.
    [[nodiscard]] const NarrowText &GetAttribute(const NarrowText &attribute) const;
    /// Appends a record, without a look at those that are there.
    AttributeRecord *AddAttribute(const NarrowText &attribute, const NarrowText &value);
};
