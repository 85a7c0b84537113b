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

ListPositions::ListPositions(CResDoc &openDocument) : document(openDocument)
{
    const ProjectPaths paths(document.PathName(), document.env);
    file = paths.Absolute(paths.ResourcePath());
}

int ListPositions::LineOf(const QString &id, ScreenSize screen) const
{
    Read();
    return lines.value({id, KeyOf(screen)}, 0);
}

void ListPositions::Read() const
{
    if (std::exchange(isRead, true))
        return;
    TiXmlDocument list;
    if (LoadXml(document.env, file, list) != 0)
        return;
    const TiXmlElement *const app = list.RootElement();
    if (!app)
        return;
    const auto add = [this](const TiXmlElement &element, quint64 key) {
        const char *const id = element.Attribute("id");
        const std::pair place(QString::fromUtf8(id), key);
        if (id && !lines.contains(place)) // the load takes the first of several elements with the same ID
            lines.insert(place, RowOf(element));
    };
    ForEachChild(*app, [&](const TiXmlElement &element) {
        quint64 key = 0;
        if (element.ValueStr() == "RESOLUTION")
            key = KeyOf({SideOf(element, "width"), SideOf(element, "height")});
        else
            add(element, key);
        ForEachChild(element, [&](const TiXmlElement &child) { add(child, key); });
    });
}
