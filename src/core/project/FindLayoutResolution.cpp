// SPDX-License-Identifier: MIT
#include "CResDoc.h"
#include "Environment.h"
#include "Paths.h"
#include "ProjectContext.h"
#include "ProjectLayouts.h"
#include "Xml.h"

#include <cstring>

namespace
{

int IntAttribute(const TiXmlElement &element, const char *name)
{
    const char *text = element.Attribute(name);
    return text ? LeadingNumber(QString::fromUtf8(text)) : 0;
}

} // namespace

LayoutEntry FindLayoutEntry(const QString &projectPath, const QString &layoutPath, CResDoc &doc)
{
    const ProjectContext context(projectPath, doc);
    TiXmlDocument document;
    if (LoadXml(doc.env, context.Absolute(context.ResourcePath()), document) != 0)
        return {};
    const TiXmlElement *root = document.FirstChildElement();
    for (auto *element = root ? root->FirstChildElement("RESOLUTION") : nullptr; element;
         element = element->NextSiblingElement("RESOLUTION")) {
        const char *group = element->Attribute("class");
        const TiXmlElement *layout = element->FirstChildElement();
        if (!group || !std::strstr(group, "layout") || !layout || layout->ValueStr() != "LAYOUT")
            continue;
        const char *text = layout->GetText();
        const QString path = QString::fromUtf8(text).remove(u'"');
        // The watch of a file has its absolute path.
        if (text && (path == layoutPath || context.Absolute(path) == layoutPath))
            return {doc.tables.resolutions.IndexOf(IntAttribute(*element, "width"), IntAttribute(*element, "height")),
                    doc.env.WideToNarrow(path)};
    }
    return {};
}

int FindLayoutResolution(const QString &projectPath, const QString &layoutPath, CResDoc &doc)
{
    return FindLayoutEntry(projectPath, layoutPath, doc).resolution;
}
