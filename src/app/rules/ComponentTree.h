#pragma once

#include "ZulType.h"

#include <QString>

class CLayoutRes;
class Environment;

// What the list of components and the Toolbox decide, without a window.

/// The label of a component: its class, with "!" behind it when nothing defines the class or nobody is offered it, and
/// its name, if it has one.
[[nodiscard]] QString ComponentLabel(const Environment &env, const CZulClass &component);

/// A component of a layout and how many others it is in.
struct ListedComponent
{
    CZulClass *component;
    int depth;

    bool operator==(const ListedComponent &) const = default;
};
/// All components of a layout, each before those that lie in it.
[[nodiscard]] std::vector<ListedComponent> ComponentsOf(const CLayoutRes &layout);

/// A component of a class with a name that the layout doesn't have. `counter` counts the names that were given.
[[nodiscard]] std::unique_ptr<ComponentObject> NewComponent(const ClassDescriptor &type, const CLayoutRes &layout,
                                                            quint32 &counter);
/// Destroys a component of a layout with all that lies in it.
void DeleteComponent(CLayoutRes &layout, CZulClass &component);
/// The question before that.
[[nodiscard]] QString DeleteQuestion();

/// The classes that the Toolbox offers, in the order of the catalogue, which owns them.
[[nodiscard]] std::vector<const ClassDescriptor *> OfferedClasses(const ClassCatalogue &catalogue);
