// SPDX-License-Identifier: MIT
#include "ComponentTree.h"

#include "CLayoutRes.h"
#include "Environment.h"

QString ComponentLabel(const Environment &env, const CZulClass &component)
{
    NarrowText label = component.typeName;
    if (!component.descriptor || component.descriptor->excluded)
        label += '!';
    if (!component.propName.isEmpty())
        label += ": " + component.propName;
    return env.NarrowToWide(label);
}

std::vector<ListedComponent> ComponentsOf(const CLayoutRes &layout)
{
    std::vector<ListedComponent> all;
    std::vector<ListedComponent> waiting; // a stack: the last element is the next one
    const auto await = [&waiting](const std::vector<std::unique_ptr<CZulClass>> &components, int depth) {
        for (auto component = components.rbegin(); component != components.rend(); ++component)
            waiting.push_back({component->get(), depth});
    };
    await(layout.Components(), 0);
    while (!waiting.empty()) {
        const ListedComponent next = waiting.back();
        waiting.pop_back();
        all.push_back(next);
        await(next.component->subComponents, next.depth + 1);
    }
    return all;
}

std::unique_ptr<ComponentObject> NewComponent(const ClassDescriptor &type, const CLayoutRes &layout, quint32 &counter)
{
    auto component = std::make_unique<ComponentObject>();
    component->className = type.name;
    component->name = layout.NewName(counter);
    return component;
}

void DeleteComponent(CLayoutRes &layout, CZulClass &component)
{
    if (component.parent)
        (void)component.parent->DeleteSubComponent(&component);
    else
        (void)layout.DeleteComponent(&component);
    layout.NotifyChanged();
}

QString DeleteQuestion()
{
    return QStringLiteral("The selected component and all of its sub-components will be deleted. Continue?");
}

std::vector<const ClassDescriptor *> OfferedClasses(const ClassCatalogue &catalogue)
{
    std::vector<NarrowText> names;
    (void)catalogue.CollectClassNames(names);
    std::vector<const ClassDescriptor *> offered;
    for (const NarrowText &name : names) {
        if (const ClassDescriptor *const type = catalogue.Find(name); type && !type->excluded)
            offered.push_back(type);
    }
    return offered;
}
