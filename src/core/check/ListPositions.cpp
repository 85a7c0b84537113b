// SPDX-License-Identifier: MIT
#include "ListPositions.h"

#include "CResDoc.h"
#include "ProjectContext.h"
#include "Xml.h"

#include <utility>

namespace
{

quint64 KeyOf(ScreenSize screen)
{
    return quint64(quint32(screen.width)) << 32 | quint32(screen.height);
}

int SideOf(const TiXmlElement &element, const char *attribute)
{
    const char *const text = element.Attribute(attribute);
    return text ? LeadingNumber(QString::fromUtf8(text)) : 0;
}

} // namespace

ListPositions::ListPositions(const CResDoc &document) : env(document.env)
{
    const ProjectPaths paths(document.PathName(), document.env);
    file = paths.Absolute(paths.ResourcePath());
}

ListPositions::ListPositions(const Environment &environment, QString layoutFile)
    : env(environment), file(std::move(layoutFile))
{
}

int ListPositions::LineOf(const QString &id) const
{
    Read();
    return firstLines.value(id, 0);
}

int ListPositions::LineOf(const QString &id, ScreenSize screen) const
{
    Read();
    return lines.value({id, KeyOf(screen)}, 0);
}

void ListPositions::Read() const
{
    if (isRead)
        return;
    isRead = true;
    TiXmlDocument xml;
    const TiXmlElement *const root = LoadXml(env, file, xml) == 0 ? xml.RootElement() : nullptr;
    if (!root)
        return;
    AddBelow(*root);
    AddForScreens(*root);
}

void ListPositions::AddBelow(const TiXmlElement &parent) const
{
    ForEachChild(parent, [this](const TiXmlElement &element) {
        const char *const id = element.Attribute("id");
        if (id && !firstLines.contains(QString::fromUtf8(id)))
            firstLines.insert(QString::fromUtf8(id), RowOf(element));
        AddBelow(element);
    });
}

void ListPositions::AddForScreens(const TiXmlElement &app) const
{
    const auto add = [this](const TiXmlElement &element, quint64 key) {
        const char *const id = element.Attribute("id");
        const std::pair place(QString::fromUtf8(id), key);
        if (id && !lines.contains(place)) // the load takes the first of several elements with the same ID
            lines.insert(place, RowOf(element));
    };
    ForEachChild(app, [&](const TiXmlElement &element) {
        quint64 key = 0;
        if (element.ValueStr() == "RESOLUTION")
            key = KeyOf({SideOf(element, "width"), SideOf(element, "height")});
        else
            add(element, key);
        ForEachChild(element, [&](const TiXmlElement &child) { add(child, key); });
    });
}
