// SPDX-License-Identifier: MIT
#pragma once

#include "Text.h"

#include <QHash>

#include <vector>

class ComponentObject;
class Environment;
class LayoutFileObject;

/// The rows of a layout file's elements, for messages. Reads the file a second time, since the layouts don't have their
/// rows.
class LayoutRows
{
public:
    LayoutRows(const Environment &env, const QString &path);
    /// Also has the rows of the components of `file`, which was read from `path`.
    LayoutRows(const Environment &env, const QString &path, const LayoutFileObject &file);

    /// The row is 1 for an element that doesn't exist.
    [[nodiscard]] int OfError() const { return errorRow; }
    [[nodiscard]] int OfRoot() const { return rootRow; }
    /// The row of the child of the root with that number, from 0.
    [[nodiscard]] int OfLayout(int number) const;
    [[nodiscard]] int OfComponent(const ComponentObject *component) const { return byComponent.value(component, 1); }

private:
    void Number(const ComponentObject &component);

    int errorRow = 1;
    int rootRow = 1;
    std::vector<int> layouts;
    std::vector<int> components; // in the order of the file
    QHash<const ComponentObject *, int> byComponent;
};
