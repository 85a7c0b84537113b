// SPDX-License-Identifier: MIT
#pragma once

#include "CatalogueFile.h"
#include "Environment.h"
#include "ZulValues.h"

#include <gtest/gtest.h>

/// A catalogue that is read from a text, and components to bind its types to.
struct TestCatalogue : ClassCatalogue
{
    TestCatalogue() = default;
    explicit TestCatalogue(QByteArrayView definitions)
    {
        std::vector<Finding> errors;
        const QByteArray text = "<catalogue version='1'>" + definitions.toByteArray() + "</catalogue>";
        EXPECT_TRUE(ParseCatalogue(env, text, QStringLiteral("test"), *this, errors))
            << CatalogueErrors(errors).join(u'\n').toStdString();
    }

    /// Adds a class directly, without the checks of the reader.
    ClassDescriptor &Add(const NarrowText &name, std::vector<ClassDescriptor::Item> items, const NarrowText &base = {},
                         qint32 kind = CLASS_CLASS)
    {
        entries.push_back(std::make_unique<ClassDescriptor>());
        ClassDescriptor &entry = *entries.back();
        entry.name = name;
        entry.baseName = base;
        entry.kind = kind;
        entry.items = std::move(items);
        return entry;
    }

    [[nodiscard]] std::unique_ptr<CZulClass> Bound(ComponentObject &component) const
    {
        std::unique_ptr<CZulType> made = CreateType(*this, {}, component.className);
        EXPECT_EQ(made->GetTypeId(), TYPE_CLASS);
        std::unique_ptr<CZulClass> object(static_cast<CZulClass *>(made.release()));
        EXPECT_TRUE(BindComponent(*object, &component));
        return object;
    }

    Environment env{QStringLiteral("/nonexistent")};
};

template <typename... Children>
std::unique_ptr<ComponentObject> Component(const NarrowText &className,
                                           std::initializer_list<AttributeRecord> attributes = {}, Children... children)
{
    auto component = std::make_unique<ComponentObject>();
    component->className = className;
    component->attributes = attributes;
    (component->children.push_back(std::move(children)), ...);
    return component;
}

/// Returns the component as a text: class, attributes, and children.
inline QByteArray Dump(const ComponentObject &component)
{
    QByteArray text = component.className;
    for (const AttributeRecord &attribute : component.attributes)
        text += ' ' + attribute.name + '=' + attribute.value;
    for (const auto &child : component.children)
        text += " {" + Dump(*child) + '}';
    return text;
}

inline void Set(CZulCustom &object, const NarrowText &member, const NarrowText &text)
{
    auto *value = dynamic_cast<CZulBase *>(object.FindMember(member));
    ASSERT_TRUE(value);
    value->SetText(text);
}

inline QByteArray Shown(const CZulCustom &object, const NarrowText &member)
{
    const CZulType *value = object.FindMember(member);
    return value ? value->GetText() : "no such member";
}
