// SPDX-License-Identifier: MIT
#include "LayoutIds.h"

#include "CResDoc.h"
#include "LayoutSurvey.h"
#include "SourceScanner.h"

#include <algorithm>

namespace
{

void AddUsed(const std::vector<std::unique_ptr<ComponentObject>> &components, const QSet<NarrowText> &names,
             QSet<NarrowText> &used)
{
    for (const auto &component : components) {
        for (const AttributeRecord &attribute : component->attributes) {
            SourceScanner scanner(attribute.value);
            for (SourceName name; scanner.Next(name);) {
                const auto id = names.constFind(NarrowText::fromRawData(name.text.data(), name.text.size()));
                if (id != names.constEnd())
                    used.insert(*id);
            }
        }
        AddUsed(component->children, names, used);
    }
}

} // namespace

QSet<NarrowText> IdsInLayouts(const CResDoc &document, const QSet<NarrowText> &names,
                              const std::vector<ScreenSize> &screens)
{
    QSet<NarrowText> used;
    for (const ListedLayout &layout : ListLayouts(document)) {
        const auto size = ParseScreenSize(layout.resolution.toStdString()); // nothing for the layouts of no screen
        if (!size || screens.empty() || std::find(screens.begin(), screens.end(), *size) != screens.end())
            AddUsed(layout.layout->components, names, used);
    }
    return used;
}
