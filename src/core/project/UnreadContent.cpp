// SPDX-License-Identifier: MIT
#include "UnreadContent.h"

#include "Text.h"

#include <algorithm>
#include <cstring>

using namespace Qt::StringLiterals;

void UnreadContent::Look(const TiXmlElement &element, std::initializer_list<const char *> attributes, Text text) const
{
    for (auto *attribute = element.FirstAttribute(); attribute; attribute = attribute->Next()) {
        const bool isKnown = std::any_of(attributes.begin(), attributes.end(),
                                         [&](const char *known) { return std::strcmp(known, attribute->Name()) == 0; });
        if (!isKnown)
            tell(RowOf(element),
                 u"the attribute \"%1\" is left out: <%2> has no attribute of that name"_s.arg(
                     Cut(QString::fromUtf8(attribute->Name())), QString::fromUtf8(element.Value())),
                 false);
    }
    LookAtNodes(element, RowOf(element), text);
}

void UnreadContent::LookAround(const TiXmlDocument &document) const
{
    LookAtNodes(document, 1, Text::IsNone);
}

void UnreadContent::LookAtNodes(const TiXmlNode &parent, int row, Text text) const
{
    const TiXmlElement *next = parent.FirstChildElement();
    for (const TiXmlNode *node = parent.FirstChild(); node; node = node->NextSibling()) {
        if (node == next) {
            row = RowOf(*next);
            next = next->NextSiblingElement();
        }
        const bool isText = text == Text::IsRead && node == parent.FirstChild() && node->ToText();
        if (node->ToElement() || node->ToDeclaration() || isText)
            continue;
        const QString what = Cut(QString::fromUtf8(node->Value()).simplified());
        tell(node->ToComment() ? RowOf(*node)
             : next            ? RowOf(*next)
                               : row,
             node->ToComment() ? u"a save drops the comment \"%1\""_s.arg(what)
                               : u"the text \"%1\" is left out: it does not belong to a resource"_s.arg(what),
             node->ToComment() != nullptr);
    }
}
