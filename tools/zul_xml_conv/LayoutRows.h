#pragma once

#include "Text.h"

#include <QHash>

#include <vector>

class ComponentObject;
class Environment;
class LayoutFileObject;

/// Where things stand in a layout file, for messages. Reads the file a second time: the layouts don't know their rows.
class LayoutRows
{
public:
    LayoutRows(const Environment &env, const QString &path);
    /// Knows the components of `file` too, which was read from it.
    LayoutRows(const Environment &env, const QString &path, const LayoutFileObject &file);

    /// What isn't there stands in row 1.
    [[nodiscard]] int OfError() const { return errorRow; }
    [[nodiscard]] int OfRoot() const { return rootRow; }
    /// The child of the root with that number, from 0.
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
