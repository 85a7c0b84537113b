#pragma once

#include "ClassCatalogue.h"
#include "ComponentObject.h"

class ComponentNames;
class CZulCustom;
class CZulType;

/// What kind of value an object is. The numbers of classes, structures and enumerations are those of ClassKind.
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

/// A typed value that lies over a component's attributes: a property, or a component itself.
class CZulType
{
public:
    virtual ~CZulType() = default;
    CZulType(const CZulType &) = delete;
    CZulType &operator=(const CZulType &) = delete;

    /// The text to show; empty when no value is set.
    [[nodiscard]] virtual NarrowText GetText() const = 0;
    [[nodiscard]] virtual qint32 GetTypeId() const = 0;
    /// Takes over the value of an attribute, and keeps pointing to it.
    virtual bool BindAttribute(AttributeRecord *record) = 0;

    NarrowText typeName;
    NarrowText propName;         ///< within its owner; of a component, its name: see CZulClass::SetName
    CZulCustom *owner = nullptr; ///< whose member this is, not owned; null for a top-level component

protected:
    CZulType() = default;
};

/// A scalar value.
class CZulBase : public CZulType
{
public:
    /// Follows from the type's name.
    [[nodiscard]] qint32 GetTypeId() const override;
    bool BindAttribute(AttributeRecord *record) override;
    /// Says whether a user may type that text.
    [[nodiscard]] virtual bool IsValid(const NarrowText &text) const = 0;
    /// Parses the text and stores it in the attribute, which is made when there is none. A text that doesn't parse is
    /// stored all the same: only editors validate. The base's stores alone.
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
    /// The members in their order, without those of a base class. A member is made when it is asked for the first
    /// time: most values of most components are never set.
    [[nodiscard]] const std::vector<std::unique_ptr<CZulType>> &Members() const;
    /// The member of that name, or null.
    [[nodiscard]] virtual CZulType *FindMember(const NarrowText &name) const;
    /// A member wrote its attribute.
    virtual void OnMemberChanged(CZulType *) {}
    /// Where a member's value lives; made when missing. Null when nothing holds the value.
    [[nodiscard]] virtual AttributeRecord *AttributeForMember(CZulType *member);
    /// Where a member that is a composite lives; made when missing.
    [[nodiscard]] virtual ComponentObject *ComponentForMember(CZulType *member);
    /// Has the members of that type from now on.
    virtual bool Define(const ClassDescriptor &definition);
    /// Takes a component as one that lies in this one.
    virtual bool AddSubComponent(ComponentObject *child) = 0;

    ComponentObject *component = nullptr;        ///< not owned; null until bound
    const ClassDescriptor *descriptor = nullptr; ///< not owned; null when nothing defined it

protected:
    /// How many owners are above, up to the bound of a type's depth.
    [[nodiscard]] int Depth() const;

    const ClassCatalogue &catalogue;
    /// Those that aren't made yet are null; it is empty while none is.
    mutable std::vector<std::unique_ptr<CZulType>> members;

private:
    CZulType *Member(size_t place) const;

    const MemberTable *table = nullptr; // of the descriptor's; null for a type that makes its members itself
};

/// A component, or a member that is one.
class CZulClass : public CZulCustom
{
public:
    using CZulCustom::CZulCustom;

    [[nodiscard]] qint32 GetTypeId() const override { return TYPE_CLASS; }
    [[nodiscard]] CZulType *FindMember(const NarrowText &name) const override;
    [[nodiscard]] ComponentObject *ComponentForMember(CZulType *member) override;
    bool Define(const ClassDescriptor &definition) override;
    bool AddSubComponent(ComponentObject *child) override;

    /// Renames the component. A name that another has already is no error here.
    void SetName(const NarrowText &name);
    /// This object, or the first below it, depth first, of that name; null when there is none.
    [[nodiscard]] CZulClass *FindSubComponent(const NarrowText &name);
    /// Destroys a sub-component with its component and all below it. False when it isn't one of this object's.
    bool DeleteSubComponent(CZulClass *sub);
    /// Takes a sub-component and its component out of both trees. Null when it isn't one of this object's.
    struct Detached
    {
        std::unique_ptr<CZulClass> object;
        std::unique_ptr<ComponentObject> component;
    };
    [[nodiscard]] Detached DetachSubComponent(CZulClass *sub);
    /// Puts what was detached at the end of both trees.
    void AttachSubComponent(Detached detached);

    std::unique_ptr<CZulClass> super; ///< for the members of the base class; null when there is none
    CZulClass *parent = nullptr;      ///< in which this is a sub-component, not owned; null for a top-level component
    std::vector<std::unique_ptr<CZulClass>> subComponents;

private:
    friend class ComponentNames;
    ComponentNames *names = nullptr; // where the layout looks its components up; null while it has no need to
};

/// A group of values in a component of its own.
class CZulStruct : public CZulCustom
{
public:
    using CZulCustom::CZulCustom;
    [[nodiscard]] qint32 GetTypeId() const override { return TYPE_STRUCTURE; }
    bool AddSubComponent(ComponentObject *) override { return false; }
};

/// An object of a type by the type's name; `owner` is null but for a member. An unknown name gives a class without
/// members. Null when the catalogue has it with an unknown kind.
///
/// A catalogue whose types hold one another is no danger: what stands too deep has no members.
[[nodiscard]] std::unique_ptr<CZulType> CreateType(const ClassCatalogue &catalogue, const NarrowText &propName,
                                                   const NarrowText &typeName, CZulCustom *owner = nullptr);

/// How deep a type may nest, bases counted too.
inline constexpr int DEEPEST_TYPE = 32;

/// The kind of value of a built-in type of that name, 256 for any other name. TYPE_STATE_IMAGE for "ZrpStateImage",
/// whose objects say TYPE_STRUCTURE.
[[nodiscard]] qint32 TypeIdOf(const NarrowText &typeName);

/// Lays an object over a component, with all that lies in it. False when it is bound already or the component is of
/// another class.
bool BindComponent(CZulCustom &object, ComponentObject *component);
