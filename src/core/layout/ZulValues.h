// SPDX-License-Identifier: MIT
#pragma once

#include "ZulType.h"

#include <array>

class IDRecord;

class CZulBool : public CZulBase
{
public:
    [[nodiscard]] NarrowText GetText() const override;
    [[nodiscard]] bool IsValid(const NarrowText &text) const override;
    void SetText(const NarrowText &text) override;

    bool value = false;
};

class CZulFloat : public CZulBase
{
public:
    [[nodiscard]] NarrowText GetText() const override;
    [[nodiscard]] bool IsValid(const NarrowText &text) const override;
    void SetText(const NarrowText &text) override;

    float value = 0;
};

class CZulS32 : public CZulBase
{
public:
    [[nodiscard]] NarrowText GetText() const override;
    [[nodiscard]] bool IsValid(const NarrowText &text) const override;
    void SetText(const NarrowText &text) override;

    qint32 value = 0;
};

/// An unsigned number, under the type names "ZulU32" and "ZulId".
class CZulU32 : public CZulBase
{
public:
    [[nodiscard]] NarrowText GetText() const override;
    [[nodiscard]] bool IsValid(const NarrowText &text) const override;
    void SetText(const NarrowText &text) override;

    quint32 value = 0;
};

/// A time in milliseconds: "250ms", "2s".
class CZulMsec : public CZulBase
{
public:
    /// True if a text sets a time. A text without a number is valid and leaves the time unchanged.
    [[nodiscard]] static bool HasNumber(const NarrowText &text);

    [[nodiscard]] NarrowText GetText() const override;
    [[nodiscard]] bool IsValid(const NarrowText &text) const override;
    void SetText(const NarrowText &text) override;

    quint32 value = 0;
};

/// A colour: "#RRGGBB", "#AARRGGBB" or "RGB(r, g, b)". The only type that stores a normal form.
class CZulColor : public CZulBase
{
public:
    [[nodiscard]] NarrowText GetText() const override;
    [[nodiscard]] bool IsValid(const NarrowText &text) const override;
    void SetText(const NarrowText &text) override;

    quint8 alpha = 255;
    quint8 red = 0;
    quint8 green = 0;
    quint8 blue = 0;
};

/// "(x, y)"
class CZulPoint : public CZulBase
{
public:
    [[nodiscard]] NarrowText GetText() const override;
    [[nodiscard]] bool IsValid(const NarrowText &text) const override;
    void SetText(const NarrowText &text) override;

    qint32 x = 0;
    qint32 y = 0;
};

/// "(x, y)", printed as "x,y"
class CZulFPoint : public CZulBase
{
public:
    [[nodiscard]] NarrowText GetText() const override;
    [[nodiscard]] bool IsValid(const NarrowText &text) const override;
    void SetText(const NarrowText &text) override;

    float x = 0;
    float y = 0;
};

/// "(width, height)"
class CZulSize : public CZulBase
{
public:
    [[nodiscard]] NarrowText GetText() const override;
    [[nodiscard]] bool IsValid(const NarrowText &text) const override;
    void SetText(const NarrowText &text) override;

    qint32 width = 0;
    qint32 height = 0;
};

/// "(left, top, width, height)"
class CZulRect : public CZulBase
{
public:
    [[nodiscard]] NarrowText GetText() const override;
    [[nodiscard]] bool IsValid(const NarrowText &text) const override;
    void SetText(const NarrowText &text) override;

    qint32 left = 0;
    qint32 top = 0;
    qint32 width = 0;
    qint32 height = 0;
};

/// A reference to a resource, "@" and its ID. The type name determines the kind of resource: "ZulResId", "ZulWString"
/// or "ZulImageSrc".
class CZulResId : public CZulBase
{
public:
    /// The reference, whether bound or not.
    [[nodiscard]] NarrowText GetText() const override { return value; }
    [[nodiscard]] bool IsValid(const NarrowText &) const override { return true; }
    void SetText(const NarrowText &text) override;
    /// Sets a reference to the resource with that ID.
    void SetReference(const IDRecord &id);

    NarrowText value;
};

/// One of the enumerators of a catalogue's enumeration.
class CZulEnum : public CZulBase
{
public:
    /// `enumeration` may be null, and isn't owned.
    explicit CZulEnum(const ClassDescriptor *enumeration) : descriptor(enumeration) {}

    [[nodiscard]] qint32 GetTypeId() const override { return TYPE_ENUM; }
    /// The enumerator, whether bound or not.
    [[nodiscard]] NarrowText GetText() const override { return value; }
    [[nodiscard]] bool IsValid(const NarrowText &text) const override;
    void SetText(const NarrowText &text) override;

    const ClassDescriptor *descriptor; ///< not owned
    NarrowText value;
};

/// Four images, one for each state of a button, in one attribute: "(normal,pressed,disabled,highlight)".
class CZulStateImg : public CZulStruct
{
public:
    explicit CZulStateImg(const ClassCatalogue &types);

    /// True if a text sets all four images.
    [[nodiscard]] static bool IsComplete(QByteArrayView text);

    bool BindAttribute(AttributeRecord *record) override;
    void OnMemberChanged(CZulType *member) override;
    [[nodiscard]] AttributeRecord *AttributeForMember(CZulType *member) override;
    bool Define(const ClassDescriptor &) override { return true; }

    AttributeRecord *attr = nullptr; ///< not owned; null until a value is set or bound

private:
    void Parse(QByteArrayView text);

    std::array<AttributeRecord, 4> records; // of the members, in their order
    bool parsing = false;                   // while true, the members' writes don't change `attr`
};
