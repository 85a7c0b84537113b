// SPDX-License-Identifier: MIT
#include "LayoutFault.h"

#include "LayoutFileObject.h"
#include "Xml.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{

struct Reason
{
    const char *code;
    QString text;
};

Reason ReasonOf(int code)
{
    switch (code) {
    case LAYOUT_NOT_OPENED:
        return {"layout.unreadable", u"the layout file can't be opened"_s};
    case LAYOUT_NOT_WELL_FORMED:
        return {"layout.malformed", u"the layout file is not well-formed XML"_s};
    case LAYOUT_NO_ROOT:
    case LAYOUT_WRONG_ROOT:
        return {"layout.root", u"the outermost element of a layout file must be <TarvoXML>"_s};
    case LAYOUT_WRONG_CHILD:
        return {"layout.element", u"only <Layout> is allowed in <TarvoXML>"_s};
    case LAYOUT_NO_ID:
        return {"layout.no-id", u"this <Layout> has no attribute \"id\""_s};
    default:
        return {"layout.id-conflict", u"another resource has the ID of this layout"_s};
    }
}

} // namespace

int RowOfLayout(const Environment &env, const QString &file, int place)
{
    TiXmlDocument document;
    const TiXmlElement *root = LoadXml(env, file, document) == 0 ? document.FirstChildElement() : nullptr;
    const TiXmlElement *layout = root ? root->FirstChildElement() : nullptr;
    for (; layout && place > 0; --place)
        layout = layout->NextSiblingElement();
    return layout ? RowOf(*layout) : 0;
}

Finding LayoutFault(const Environment &env, const QString &file, int code, int loaded)
{
    const Reason reason = ReasonOf(code);
    Finding finding{reason.code, Severity::Error, file, 0, {}, reason.text + u"; the file is not loaded completely"_s};
    if (code == LAYOUT_NOT_WELL_FORMED) {
        TiXmlDocument document;
        if (LoadXml(env, file, document) != 0)
            finding.line = std::max(document.ErrorRow(), 1);
    } else if (code != LAYOUT_NOT_OPENED && code != LAYOUT_NO_ROOT && code != LAYOUT_WRONG_ROOT) {
        finding.line = RowOfLayout(env, file, loaded);
    }
    return finding;
}
