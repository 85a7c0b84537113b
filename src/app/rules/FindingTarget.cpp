// SPDX-License-Identifier: MIT
#include "FindingTarget.h"

#include "CLayoutRes.h"
#include "CResDoc.h"
#include "Environment.h"
#include "ListPositions.h"
#include "Locator.h"
#include "Paths.h"
#include "Xml.h"

namespace
{

/// The absolute path of the file of a layout.
QString FileOf(const CResDoc &document, const CLayoutRes &layout)
{
    QString file = document.env.NarrowToWide(layout.File()->path);
    MakeAbsolute(file, DirectoryOf(document.PathName()));
    return file;
}

/// Returns whether a resource is the one in the file and line of a finding.
bool IsAt(const CResDoc &document, const ListPositions &list, const CBaseRes &resource, const Finding &finding)
{
    if (const auto *const layout = dynamic_cast<const CLayoutRes *>(&resource))
        return FileOf(document, *layout) == finding.file;
    if (finding.file != list.File())
        return false;
    ScreenSize screen;
    if (const CResFolder &folder = *resource.Folder(); folder.kind == KIND_RESO_IMAGES && folder.index >= 0) {
        const CResoEntry &entry = document.tables.resolutions.At(folder.index);
        screen = {entry.width, entry.height};
    }
    return list.LineOf(finding.id, screen) == finding.line;
}

/// Returns the element of a layout's ID, or null.
const TiXmlElement *FindLayout(const Environment &env, const TiXmlDocument &xml, const NarrowText &name)
{
    const TiXmlElement *const root = xml.RootElement();
    for (auto *layout = root ? root->FirstChildElement() : nullptr; layout; layout = layout->NextSiblingElement()) {
        const char *const id = layout->Attribute("id");
        if (id && FromXml(env, id) == name)
            return layout;
    }
    return nullptr;
}

/// Returns the name of the innermost component that a line of the layout's file is in; empty if that has none.
NarrowText ComponentAt(const Environment &env, const CLayoutRes &layout, const Finding &finding)
{
    TiXmlDocument xml;
    if (finding.line <= 0 || LoadXml(env, finding.file, xml) != 0)
        return {};
    NarrowText name;
    for (const TiXmlElement *element = FindLayout(env, xml, layout.Id()->name); element;) {
        const TiXmlElement *inner = nullptr;
        ForEachChild(*element, [&](const TiXmlElement &child) {
            if (RowOf(child) <= finding.line)
                inner = &child;
        });
        const char *const own = inner ? inner->Attribute("name") : nullptr;
        if (own && *own)
            name = FromXml(env, own);
        element = inner;
    }
    return name;
}

} // namespace

FindingTarget TargetOf(CResDoc &document, const Finding &finding)
{
    FindingTarget target;
    if (finding.id.isEmpty())
        return target;
    const std::vector<LocatedId> located = LocateId(document, finding.id);
    if (located.empty())
        return target;
    const LocatedId *chosen = &located.front();
    if (!finding.file.isEmpty()) {
        const ListPositions list(document);
        for (const LocatedId &each : located) {
            if (IsAt(document, list, *each.resource, finding)) {
                chosen = &each;
                break;
            }
        }
    }
    target.resource = chosen->resource;
    target.folder = chosen->folder;
    target.language = finding.language;
    if (const auto *const layout = dynamic_cast<const CLayoutRes *>(target.resource);
        layout && FileOf(document, *layout) == finding.file)
        target.component = ComponentAt(document.env, *layout, finding);
    return target;
}
