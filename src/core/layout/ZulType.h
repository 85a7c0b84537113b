// SPDX-License-Identifier: MIT
#pragma once

#include "ClassCatalogue.h"
#include "ComponentObject.h"

class ComponentNames;
class CZulCustom;
class CZulType;

/// The kind of value of an object. Classes, structures and enumerations have the numbers of ClassKind.
enum TypeId : qint32
{
    TYPE_CLASS = 1,
    TYPE_STRUCTURE = 2,
    TYPE_ENUM = 3,
    TYPE_UNKNOWN = 256,
    TYPE_BOOL = 257,
    TYPE_FLOAT = 258,
    TYPE_S32 = 259,
    TYPE_U32 = 260,
    TYPE_MSEC = 261,
    TYPE_COLOR = 262,
    TYPE_POINT = 263,
    TYPE_SIZE = 264,
    TYPE_RECT = 265,
    TYPE_FPOINT = 266,
    TYPE_RES_ID = 267,
    TYPE_IMAGE_SRC = 268,
    TYPE_STATE_IMAGE = 269,
    TYPE_WSTRING = 270,
};

/// A typed value bound to a component's attributes: a property, or a component itself.
class CZulType
{
public:
    virtual ~CZulType() = default;
    CZulType(const CZulType &) = delete;
    CZulType &operator=(const CZulType &) = delete;

    /// The text to show; empty when no value is set.
    [[nodiscard]] virtual NarrowText GetText() const = 0;
    [[nodiscard]] virtual qint32 GetTypeId() const = 0;
    /// Reads the value of an attribute, and keeps a pointer to it.
    virtual bool BindAttribute(AttributeRecord *record) = 0;

    NarrowText typeName;
    NarrowText propName;         ///< within its owner; for a component its name, see CZulClass::SetName
    CZulCustom *owner = nullptr; ///< the object that this is a member of, not owned; null for a top-level component

protected:
    CZulType() = default;
};

/// A scalar value.
class CZulBase : public CZulType
{
public:
    /// Determined by the type's name.
    [[nodiscard]] qint32 GetTypeId() const override;
    bool BindAttribute(AttributeRecord *record) override;
    /// True if a user may type that text.
    [[nodiscard]] virtual bool IsValid(const NarrowText &text) const = 0;
    /// Parses the text and stores it in the attribute, which is made if there is none. A text that can't be parsed is
    /// stored too: only editors validate. This base implementation only stores the text.
    virtual void SetText(const NarrowText &text);

    AttributeRecord *attr = nullptr; ///< not owned; null until a value is set or bound
};

/// A value made of members.
class CZulCustom : public CZulType
{
public:
    explicit CZulCustom(const ClassCatalogue &types) : catalogue(types) {}

    [[nodiscard]] NarrowText GetText() const override;
    bool BindAttribute(AttributeRecord *) override { return false; }
    /// The members in their order, without those of a base class. A member is made when it is first requested, since
    /// most values of most components are never set.
    [[nodiscard]] const std::vector<std::unique_ptr<CZulType>> &Members() const;
    /// The member with that name, or null.
    [[nodiscard]] virtual CZulType *FindMember(const NarrowText &name) const;
    /// Called when a member has written its attribute.
    virtual void OnMemberChanged(CZulType *) {}
    /// The attribute of a member's value, which is made if missing. Null if nothing holds the value.
    [[nodiscard]] virtual AttributeRecord *AttributeForMember(CZulType *member);
    /// The component of a composite member, which is made if missing.
    [[nodiscard]] virtual ComponentObject *ComponentForMember(CZulType *member);
    /// Gives this object the members of that type.
    virtual bool Define(const ClassDescriptor &definition);
    /// Adds a component as a sub-component of this one.
    virtual bool AddSubComponent(ComponentObject *child) = 0;

    ComponentObject *component = nullptr;        ///< not owned; null until bound
    const ClassDescriptor *descriptor = nullptr; ///< not owned; null if it was never defined

protected:
    /// The number of owners above this object, up to the maximum depth of a type.
    [[nodiscard]] int Depth() const;

    const ClassCatalogue &catalogue;
    /// Members that aren't made yet are null; empty while none is made.
    mutable std::vector<std::unique_ptr<CZulType>> members;

private:
    CZulType *Member(size_t place) const;

    const MemberTable *table = nullptr; // of the descriptor; null for a type that makes its members itself
};

/// A component, or a member whose type is a class.
class CZulClass : public CZulCustom
{
public:
    using CZulCustom::CZulCustom;

    [[nodiscard]] qint32 GetTypeId() const override { return TYPE_CLASS; }
    [[nodiscard]] CZulType *FindMember(const NarrowText &name) const override;
    [[nodiscard]] ComponentObject *ComponentForMember(CZulType *member) override;
    bool Define(const ClassDescriptor &definition) override;
    bool AddSubComponent(ComponentObject *child) override;

    /// Renames the component. A name that another component has isn't an error here.
    void SetName(const NarrowText &name);
    /// This object or its first descendant, depth first, with that name; null if there is none.
    [[nodiscard]] CZulClass *FindSubComponent(const NarrowText &name);
    /// Destroys a sub-component with its component and all its descendants. Returns false if it isn't one of this
    /// object's sub-components.
    bool DeleteSubComponent(CZulClass *sub);
    /// Removes a sub-component and its component from both trees. Returns null pointers if it isn't one of this
    /// object's sub-components.
    struct Detached
    {
        std::unique_ptr<CZulClass> object;
        std::unique_ptr<ComponentObject> component;
    };
    [[nodiscard]] Detached DetachSubComponent(CZulClass *sub);
    /// Appends a detached sub-component to both trees.
    void AttachSubComponent(Detached detached);

    std::unique_ptr<CZulClass> super; ///< has the members of the base class; null if there is none
    CZulClass *parent = nullptr;      ///< has this as a sub-component; not owned; null for a top-level component
    std::vector<std::unique_ptr<CZulClass>> subComponents;

private:
    friend class ComponentNames;
    ComponentNames *names = nullptr; // the layout's table of names; null while it isn't needed
};

/// A group of values in a component of its own.
class CZulStruct : public CZulCustom
{
public:
    using CZulCustom::CZulCustom;
    [[nodiscard]] qint32 GetTypeId() const override { return TYPE_STRUCTURE; }
    bool AddSubComponent(ComponentObject *) override { return false; }
};

/// Makes an object of the type with that name; `owner` is null unless it is a member. An unknown name gives a class
/// without members. Returns null if the type's kind in the catalogue is unknown.
///
/// Types that contain one another are safe: objects nested too deep have no members.
[[nodiscard]] std::unique_ptr<CZulType> CreateType(const ClassCatalogue &catalogue, const NarrowText &propName,
                                                   const NarrowText &typeName, CZulCustom *owner = nullptr);

/// The maximum nesting depth of a type, including its bases.
inline constexpr int DEEPEST_TYPE = 32;

/// The kind of value of the built-in type with that name; 256 for any other name. TYPE_STATE_IMAGE for "ZrpStateImage",
/// although its objects return TYPE_STRUCTURE.
[[nodiscard]] qint32 TypeIdOf(const NarrowText &typeName);

/// Binds an object to a component, with all its sub-components. Returns false if the object is already bound or the
/// component has another class.
bool BindComponent(CZulCustom &object, ComponentObject *component);
