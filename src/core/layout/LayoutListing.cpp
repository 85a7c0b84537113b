// SPDX-License-Identifier: MIT
#include "LayoutListing.h"

#include "Environment.h"
#include "JsonWriter.h"

#include <QHash>

namespace
{

constexpr QByteArrayView MEMBER_ATTRIBUTE = "prop";

/// Puts a text in quotes, on one line.
QByteArray OnOneLine(const QByteArray &text)
{
    return Quoted(text, [](QByteArray &to, char c) {
        if (c == '\n')
            to += "\\n";
        else
            to += "\\x" + QByteArray(1, c).toHex();
    });
}

void AppendText(QByteArray &text, const Environment &env, const ComponentObject &component, int depth)
{
    text += QByteArray(2 * depth, ' ') + env.Shown(component.className);
    if (!component.name.isEmpty())
        text += ' ' + OnOneLine(env.Shown(component.name));
    for (const AttributeRecord &attribute : component.attributes)
        text += ' ' + env.Shown(attribute.name) + '=' + OnOneLine(env.Shown(attribute.value));
    text += '\n';
    for (const auto &child : component.children)
        AppendText(text, env, *child, depth + 1);
}

/// Writes the properties in the order of the file. If a name occurs several times, the first gives the place and the
/// last the value, as in a saved file.
void WriteProperties(JsonWriter &json, const Environment &env, const ComponentObject &component)
{
    std::vector<const AttributeRecord *> properties;
    QHash<NarrowText, size_t> places;
    for (const AttributeRecord &attribute : component.attributes) {
        if (attribute.name == MEMBER_ATTRIBUTE)
            continue;
        const auto place = places.constFind(attribute.name);
        if (place != places.cend()) {
            properties[*place] = &attribute;
            continue;
        }
        places.insert(attribute.name, properties.size());
        properties.push_back(&attribute);
    }
    json.BeginObject();
    for (const AttributeRecord *property : properties) {
        json.Key(env.NarrowToWide(property->name));
        json.String(env.NarrowToWide(property->value));
    }
    json.EndObject();
}

void WriteComponent(JsonWriter &json, const Environment &env, const ComponentObject &component);

void WriteComponents(JsonWriter &json, const Environment &env,
                     const std::vector<std::unique_ptr<ComponentObject>> &components)
{
    json.Key(QStringLiteral("components"));
    json.BeginArray();
    for (const auto &component : components)
        WriteComponent(json, env, *component);
    json.EndArray();
}

void WriteComponent(JsonWriter &json, const Environment &env, const ComponentObject &component)
{
    const AttributeRecord *member = nullptr;
    for (const AttributeRecord &attribute : component.attributes) {
        if (attribute.name == MEMBER_ATTRIBUTE)
            member = &attribute;
    }
    json.BeginObject();
    json.Key(QStringLiteral("class"));
    json.String(env.NarrowToWide(component.className));
    WriteComponents(json, env, component.children);
    if (member) {
        json.Key(QStringLiteral("member"));
        json.String(env.NarrowToWide(member->value));
    }
    json.Key(QStringLiteral("name"));
    json.String(env.NarrowToWide(component.name));
    json.Key(QStringLiteral("properties"));
    WriteProperties(json, env, component);
    json.EndObject();
}

} // namespace

QByteArray LayoutsText(const Environment &env, const std::vector<ListedLayout> &layouts)
{
    QByteArray text;
    for (const ListedLayout &listed : layouts) {
        text += listed.resolution.toUtf8() + ' ' + env.Shown(listed.layout->Id()->name) + '\n';
        for (const auto &component : listed.layout->components)
            AppendText(text, env, *component, 1);
    }
    return text;
}

QByteArray LayoutsJson(const Environment &env, const std::vector<ListedLayout> &layouts)
{
    QByteArray text;
    JsonWriter json(text);
    json.BeginObject();
    json.Key("version");
    json.Number(1);
    json.Key(QStringLiteral("layouts"));
    json.BeginArray();
    for (const ListedLayout &listed : layouts) {
        json.BeginObject();
        WriteComponents(json, env, listed.layout->components);
        json.Key(QStringLiteral("file"));
        json.String(listed.file);
        json.Key(QStringLiteral("id"));
        json.String(env.NarrowToWide(listed.layout->Id()->name));
        json.Key(QStringLiteral("resolution"));
        json.String(listed.resolution);
        json.EndObject();
    }
    json.EndArray();
    json.EndObject();
    return text + '\n';
}
