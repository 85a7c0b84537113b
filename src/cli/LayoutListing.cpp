#include "LayoutListing.h"

#include "Environment.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace
{

constexpr QByteArrayView MEMBER_ATTRIBUTE = "prop";

/// In quotes, on one line.
QByteArray Quoted(const QByteArray &text)
{
    QByteArray quoted = "\"";
    for (const char c : text) {
        if (c == '"' || c == '\\')
            (quoted += '\\') += c;
        else if (c == '\n')
            quoted += "\\n";
        else if (quint8(c) < ' ' || c == '\x7F')
            quoted += "\\x" + QByteArray(1, c).toHex();
        else
            quoted += c;
    }
    return quoted + '"';
}

void AppendText(QByteArray &text, const Environment &env, const ComponentObject &component, int depth)
{
    text += QByteArray(2 * depth, ' ') + env.Shown(component.className);
    if (!component.name.isEmpty())
        text += ' ' + Quoted(env.Shown(component.name));
    for (const AttributeRecord &attribute : component.attributes)
        text += ' ' + env.Shown(attribute.name) + '=' + Quoted(env.Shown(attribute.value));
    text += '\n';
    for (const auto &child : component.children)
        AppendText(text, env, *child, depth + 1);
}

QJsonObject ToJson(const Environment &env, const ComponentObject &component)
{
    QJsonObject object{{QStringLiteral("class"), env.NarrowToWide(component.className)},
                       {QStringLiteral("name"), env.NarrowToWide(component.name)}};
    QJsonObject properties;
    for (const AttributeRecord &attribute : component.attributes) {
        const QString value = env.NarrowToWide(attribute.value);
        if (attribute.name == MEMBER_ATTRIBUTE)
            object.insert(QStringLiteral("member"), value);
        else
            properties.insert(env.NarrowToWide(attribute.name), value);
    }
    QJsonArray children;
    for (const auto &child : component.children)
        children.append(ToJson(env, *child));
    object.insert(QStringLiteral("properties"), properties);
    object.insert(QStringLiteral("components"), children);
    return object;
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
    QJsonArray list;
    for (const ListedLayout &listed : layouts) {
        QJsonArray components;
        for (const auto &component : listed.layout->components)
            components.append(ToJson(env, *component));
        list.append(QJsonObject{{QStringLiteral("resolution"), listed.resolution},
                                {QStringLiteral("id"), env.NarrowToWide(listed.layout->Id()->name)},
                                {QStringLiteral("file"), listed.file},
                                {QStringLiteral("components"), components}});
    }
    return QJsonDocument(QJsonObject{{QStringLiteral("layouts"), list}}).toJson();
}
