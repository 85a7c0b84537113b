// SPDX-License-Identifier: MIT
#pragma once

#include "Text.h"

#include <QHash>

class CZulClass;

/// The names of a layout's components. A look-up takes constant time, however many names there are and however many
/// components have the same name. Components without a name aren't in it.
///
/// CLayoutRes makes it when a component is first looked up. From then on each CZulClass of the tree keeps it up to date
/// when it adds, removes or renames a component.
class ComponentNames
{
public:
    /// Adds a component and all its descendants.
    void Add(CZulClass &object);
    /// Removes a component and all its descendants.
    void Remove(CZulClass &object);
    /// Records that a component's name has changed from `from` to `to`.
    void Rename(CZulClass &object, const NarrowText &from, const NarrowText &to);

    /// The number of components with that name.
    [[nodiscard]] int CountOf(const NarrowText &name) const { return names.value(name).count; }
    /// The component with that name if there is exactly one; otherwise null.
    [[nodiscard]] CZulClass *OnlyOne(const NarrowText &name) const;

private:
    struct Bearers
    {
        int count = 0;
        quintptr combined = 0; // exclusive or of their addresses; the address itself if there is only one
    };

    void Enter(const NarrowText &name, const CZulClass &object);
    void Leave(const NarrowText &name, const CZulClass &object);

    QHash<NarrowText, Bearers> names;
};
