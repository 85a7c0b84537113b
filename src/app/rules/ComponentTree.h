// SPDX-License-Identifier: MIT
#pragma once

#include "ZulType.h"

#include <QString>

class CLayoutRes;
class Environment;

// The logic of the list of components and of the Toolbox, without a window.

/// The label of a component: its class and its name, if it has one. The class is followed by "!" if it isn't defined or
/// isn't offered to the user.
[[nodiscard]] QString ComponentLabel(const Environment &env, const CZulClass &component);

/// A component of a layout and its depth: the number of components that contain it.
struct ListedComponent
{
    CZulClass *component;
    int depth;

    bool operator==(const ListedComponent &) const = default;
};
/// All components of a layout, each before the components that it contains.
[[nodiscard]] std::vector<ListedComponent> ComponentsOf(const CLayoutRes &layout);

/// Makes a component of a class, with a name that no component of the layout has. `counter` counts the names that were
/// given.
[[nodiscard]] std::unique_ptr<ComponentObject> NewComponent(const ClassDescriptor &type, const CLayoutRes &layout,
                                                            quint32 &counter);
/// Destroys a component of a layout and all components in it.
void DeleteComponent(CLayoutRes &layout, CZulClass &component);
/// The question that the user is asked before DeleteComponent.
[[nodiscard]] QString DeleteQuestion();

/// The classes that the Toolbox offers, in the order of the catalogue. The catalogue owns them.
[[nodiscard]] std::vector<const ClassDescriptor *> OfferedClasses(const ClassCatalogue &catalogue);
