// SPDX-License-Identifier: MIT
#include "LayoutRows.h"

#include "LayoutFileObject.h"
#include "Xml.h"

#include <algorithm>

namespace
{

void Collect(const TiXmlElement &element, std::vector<int> &rows)
{
    for (auto *child = element.FirstChildElement(); child; child = child->NextSiblingElement()) {
        rows.push_back(RowOf(*child));
        Collect(*child, rows); // nesting is bounded by LoadXml
    }
}

} // namespace

LayoutRows::LayoutRows(const Environment &env, const QString &path)
{
    TiXmlDocument document;
    if (LoadXml(env, path, document) != 0) {
        errorRow = std::max(document.ErrorRow(), 1);
        return;
    }
    const TiXmlElement *root = document.FirstChildElement();
    if (!root)
        return;
    rootRow = RowOf(*root);
    for (auto *layout = root->FirstChildElement(); layout; layout = layout->NextSiblingElement()) {
        layouts.push_back(RowOf(*layout));
        Collect(*layout, components);
    }
}

LayoutRows::LayoutRows(const Environment &env, const QString &path, const LayoutFileObject &file)
    : LayoutRows(env, path)
{
    for (const auto &layout : file.All()) {
        for (const auto &component : layout->components)
            Number(*component);
    }
}

void LayoutRows::Number(const ComponentObject &component)
{
    const auto place = size_t(byComponent.size());
    byComponent.insert(&component, place < components.size() ? components[place] : 1);
    for (const auto &child : component.children)
        Number(*child);
}

int LayoutRows::OfLayout(int number) const
{
    return size_t(number) < layouts.size() ? layouts[size_t(number)] : rootRow;
}
