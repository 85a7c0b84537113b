#pragma once

#include "Text.h"

#include <QHash>

class CZulClass;

/// The names of a layout's components. Looking one up takes the same time however many there are, and however many
/// have the same name. Components without a name aren't in it.
///
/// CLayoutRes makes it when a component is first looked for; from then on each CZulClass of the tree keeps it up to
/// date when it takes in, gives away or renames a component.
class ComponentNames
{
public:
    /// Takes in a component and all below it.
    void Add(CZulClass &object);
    /// Takes out a component and all below it.
    void Remove(CZulClass &object);
    /// One component is now called `to` instead of `from`.
    void Rename(CZulClass &object, const NarrowText &from, const NarrowText &to);

    /// How many components have that name.
    [[nodiscard]] int CountOf(const NarrowText &name) const { return names.value(name).count; }
    /// The component of that name, when it is the only one.
    [[nodiscard]] CZulClass *OnlyOne(const NarrowText &name) const;

private:
    struct Bearers
    {
        int count = 0;
        quintptr combined = 0; // the addresses of all, by exclusive or: of a single one it is the address
    };

    void Enter(const NarrowText &name, const CZulClass &object);
    void Leave(const NarrowText &name, const CZulClass &object);

    QHash<NarrowText, Bearers> names;
};
