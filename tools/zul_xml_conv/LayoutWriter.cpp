// SPDX-License-Identifier: MIT
#include "LayoutWriter.h"

#include "ZulValues.h"

#include "morvanite_layout.h"

#include <bit>

namespace
{

constexpr quint8 VERSION = 1;
constexpr quint8 HEADER_SIZE = 20;
constexpr qsizetype LONG_PART = 255; // words; a part of this size or more has its size in a separate field
constexpr char PROP[] = "prop";
constexpr char NOTHING[] = "0"; // the reference to no resource

QByteArray U32(quint32 number)
{
    QByteArray bytes(4, Qt::Uninitialized);
    for (int i = 0; i < 4; ++i)
        bytes[i] = char(number >> (8 * i));
    return bytes;
}

QByteArray U16(quint16 number)
{
    return U32(number).first(2);
}

QByteArray Words(std::initializer_list<quint32> words)
{
    QByteArray bytes;
    for (const quint32 word : words)
        bytes += U32(word);
    return bytes;
}

/// The text with its zero byte, padded to whole words.
QByteArray Text(const NarrowText &text)
{
    return text + QByteArray(4 - text.size() % 4, '\0');
}

class DepthCounter
{
public:
    DepthCounter(int &depthNow, int &deepest) : depth(depthNow) { deepest = std::max(deepest, ++depth); }
    ~DepthCounter() { --depth; }
    DepthCounter(const DepthCounter &) = delete;
    DepthCounter &operator=(const DepthCounter &) = delete;

private:
    int &depth;
};

bool IsStateImage(const CZulType &member)
{
    return TypeIdOf(member.typeName) == TYPE_STATE_IMAGE;
}

QByteArray Shown(const NarrowText &text)
{
    constexpr qsizetype LONGEST = 80; // in a message
    return '"' + (text.size() > LONGEST ? text.first(LONGEST) + "..." : text) + '"';
}

} // namespace

QByteArray LayoutWriter::Write(const NarrowText &id, const std::vector<std::unique_ptr<ComponentObject>> &components)
{
    levels = 0;
    QByteArray parts;
    for (const auto &component : components)
        WriteComponent(parts, *component);
    const auto number = ids.Find(id);
    if (!number)
        tell(nullptr, Shown(id) + " has no number in the header");
    return "MLAY" + QByteArray(1, char(VERSION)) + char(HEADER_SIZE) + U16(quint16(levels)) +
           U32(quint32(HEADER_SIZE + parts.size())) + U32(number.value_or(0)) + U32(tables.Stamp()) + parts;
}

void LayoutWriter::Part(QByteArray &out, quint16 number, quint8 type, const QByteArray &value)
{
    const qsizetype words = value.size() / 4;
    out += U16(number) + char(type) + char(std::min(words, LONG_PART));
    if (words >= LONG_PART)
        out += U32(quint32(value.size()));
    out += value;
}

void LayoutWriter::WriteComponent(QByteArray &out, ComponentObject &component)
{
    const std::unique_ptr<CZulType> object = CreateType(types, {}, component.className);
    if (!object || object->GetTypeId() != TYPE_CLASS) {
        tell(&component, Shown(component.className) + " is not a component class");
        return;
    }
    written.clear();
    Remember(component);
    auto &typed = static_cast<CZulClass &>(*object);
    if (!BindComponent(typed, &component))
        tell(&component, "a " + Shown(component.className) + " can't be created from this element");
    else
        WriteTyped(out, typed);
}

void LayoutWriter::WriteTyped(QByteArray &out, const CZulClass &object)
{
    const DepthCounter counter(depth, levels);
    QByteArray parts;
    if (!object.descriptor) {
        Part(parts, 0, MORVANITE_CLASS_NAME, Text(object.typeName));
        WriteName(parts, object.component->name);
        WriteUntyped(parts, *object.component);
    } else {
        WriteName(parts, object.component->name);
        WriteContent(parts, object, &object);
    }
    Part(out, object.descriptor ? tables.Class(object.typeName) : 0, MORVANITE_COMPONENT, parts);
}

void LayoutWriter::WriteName(QByteArray &parts, const NarrowText &name)
{
    if (!name.isEmpty())
        Part(parts, 0, MORVANITE_NAME, Text(name));
}

/// Writes a component whose class isn't in the catalogue: nothing is known about its properties. The classes of its
/// sub-components may be known.
void LayoutWriter::WriteUntyped(QByteArray &parts, const ComponentObject &component)
{
    for (const AttributeRecord &record : component.attributes)
        Part(parts, 0, MORVANITE_UNNUMBERED, Text(record.name + '\0' + record.value));
    for (const auto &child : component.children)
        WriteComponent(parts, *child);
}

/// Writes values, then structures, then components, so that a search for a property is short.
void LayoutWriter::WriteContent(QByteArray &parts, const CZulCustom &object, const CZulClass *asClass)
{
    const ComponentObject &component = *object.component;
    for (const AttributeRecord &record : component.attributes) {
        if (record.name != PROP)
            WriteAttribute(parts, object, record);
    }
    std::vector<const ComponentObject *> inside;
    for (const auto &child : component.children) {
        const NarrowText &property = child->GetAttribute(PROP);
        CZulType *const member = property.isEmpty() ? nullptr : object.FindMember(property);
        if (!member) {
            inside.push_back(child.get());
            continue;
        }
        const auto *custom = dynamic_cast<const CZulCustom *>(member);
        if (!custom || IsStateImage(*custom) || custom->component != child.get() || !custom->descriptor ||
            custom->descriptor->name != child->className) {
            tell(child.get(), Shown(child->className) + " can't be the value of " + Shown(property));
            continue;
        }
        const DepthCounter counter(depth, levels);
        QByteArray members;
        WriteContent(members, *custom,
                     custom->GetTypeId() == TYPE_CLASS ? static_cast<const CZulClass *>(custom) : nullptr);
        Part(parts, tables.Property(property), MORVANITE_GROUP, members);
    }
    size_t next = 0;
    for (const ComponentObject *child : inside) {
        if (asClass && next < asClass->subComponents.size() && asClass->subComponents[next]->component == child)
            WriteTyped(parts, *asClass->subComponents[next++]);
        else if (const NarrowText &property = child->GetAttribute(PROP); !property.isEmpty())
            tell(child, Shown(child->className) + " can't be the value of " + Shown(property));
        else
            tell(child, Shown(child->className) + " is not allowed here: " +
                            (asClass ? "it is not a component class" : "a structure can't contain components"));
    }
}

/// Keeps the texts that may be changed to a normal form: whether they are valid is decided by the text in the file.
void LayoutWriter::Remember(const ComponentObject &component)
{
    for (const AttributeRecord &record : component.attributes) {
        if (record.value.startsWith('#') || record.value.startsWith("RGB("))
            written.emplace(&record, record.value);
    }
    for (const auto &child : component.children)
        Remember(*child);
}

const NarrowText &LayoutWriter::AsWritten(const AttributeRecord &record) const
{
    const auto found = written.find(&record);
    return found == written.end() ? record.value : found->second;
}

void LayoutWriter::WriteAttribute(QByteArray &parts, const CZulCustom &object, const AttributeRecord &record)
{
    CZulType *const member = object.FindMember(record.name);
    if (!member)
        Part(parts, 0, MORVANITE_UNNUMBERED, Text(record.name + '\0' + record.value));
    else if (!record.value.isEmpty()) // otherwise nothing was set
        WriteValue(parts, tables.Property(record.name), *member, AsWritten(record), *object.component);
}

void LayoutWriter::WriteValue(QByteArray &parts, quint16 property, CZulType &member, const NarrowText &text,
                              const ComponentObject &where)
{
    const auto part = [&](quint8 type, std::initializer_list<quint32> words) {
        Part(parts, property, type, Words(words));
    };
    if (IsStateImage(member)) {
        WriteStateImage(parts, property, static_cast<const CZulStruct &>(member), text, where);
        return;
    }
    auto *const value = dynamic_cast<CZulBase *>(&member);
    if (!value) {
        tell(&where, Shown(member.propName) + " must be an element, not text");
        return;
    }
    const bool isTime = dynamic_cast<const CZulMsec *>(value) != nullptr;
    if (!value->IsValid(text) || (isTime && !CZulMsec::HasNumber(text))) {
        tell(&where, Shown(text) + " is not a valid value for " + Shown(member.propName) + ", which has the type " +
                         member.typeName);
        return;
    }
    if (const auto *truth = dynamic_cast<const CZulBool *>(value)) {
        part(MORVANITE_BOOL, {quint32(truth->value)});
    } else if (const auto *number = dynamic_cast<const CZulS32 *>(value)) {
        part(MORVANITE_S32, {quint32(number->value)});
    } else if (const auto *natural = dynamic_cast<const CZulU32 *>(value)) {
        part(MORVANITE_U32, {natural->value});
    } else if (const auto *time = dynamic_cast<const CZulMsec *>(value)) {
        part(MORVANITE_MSEC, {time->value});
    } else if (const auto *real = dynamic_cast<const CZulFloat *>(value)) {
        part(MORVANITE_FLOAT, {std::bit_cast<quint32>(real->value)});
    } else if (const auto *color = dynamic_cast<const CZulColor *>(value)) {
        part(MORVANITE_COLOR,
             {quint32(color->alpha) << 24 | quint32(color->red) << 16 | quint32(color->green) << 8 | color->blue});
    } else if (const auto *point = dynamic_cast<const CZulPoint *>(value)) {
        part(MORVANITE_POINT, {quint32(point->x), quint32(point->y)});
    } else if (const auto *size = dynamic_cast<const CZulSize *>(value)) {
        part(MORVANITE_SIZE, {quint32(size->width), quint32(size->height)});
    } else if (const auto *place = dynamic_cast<const CZulFPoint *>(value)) {
        part(MORVANITE_FPOINT, {std::bit_cast<quint32>(place->x), std::bit_cast<quint32>(place->y)});
    } else if (const auto *rect = dynamic_cast<const CZulRect *>(value)) {
        part(MORVANITE_RECT, {quint32(rect->left), quint32(rect->top), quint32(rect->width), quint32(rect->height)});
    } else if (const auto *choice = dynamic_cast<const CZulEnum *>(value)) {
        quint32 position = 0;
        while (choice->descriptor->items[position].name != text)
            ++position; // the value is valid, so it is found
        part(MORVANITE_ENUMERATOR, {position});
    } else {
        WriteReference(parts, property, member.typeName, text, where);
    }
}

void LayoutWriter::WriteReference(QByteArray &parts, quint16 property, const NarrowText &typeName,
                                  const NarrowText &text, const ComponentObject &where)
{
    const qint32 type = TypeIdOf(typeName);
    if (type == TYPE_WSTRING && text != NOTHING && !text.startsWith('@'))
        Part(parts, property, MORVANITE_TEXT, Text(text)); // the text to show, unchanged
    else
        Part(parts, property,
             type == TYPE_WSTRING     ? MORVANITE_STRING
             : type == TYPE_IMAGE_SRC ? MORVANITE_IMAGE
                                      : MORVANITE_REFERENCE,
             U32(Reference(text, where)));
}

void LayoutWriter::WriteStateImage(QByteArray &parts, quint16 property, const CZulStruct &member,
                                   const NarrowText &text, const ComponentObject &where)
{
    if (!CZulStateImg::IsComplete(text)) {
        tell(&where, Shown(text) + " is not a valid value for " + Shown(member.propName) + ", which has the type " +
                         member.typeName);
        return;
    }
    QByteArray words;
    for (const auto &image : member.Members())
        words += U32(Reference(image->GetText(), where));
    Part(parts, property, MORVANITE_STATE_IMAGE, words);
}

quint32 LayoutWriter::Reference(const NarrowText &text, const ComponentObject &where)
{
    if (text.isEmpty() || text == NOTHING)
        return 0;
    if (!text.startsWith('@')) {
        tell(&where, Shown(text) + " is not a reference to a resource: a reference is \"@\" and an ID, or 0 for none");
        return 0;
    }
    const auto number = ids.Find(text.sliced(1));
    if (!number)
        tell(&where, Shown(text.sliced(1)) + " has no number in the header");
    return number.value_or(0);
}
