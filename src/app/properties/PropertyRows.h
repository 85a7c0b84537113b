#pragma once

#include "ZulType.h"

#include <QString>

#include <vector>

class Environment;

/// What a row of the property grid is about.
enum class PropertyKind
{
    Name,    ///< the component: its name is edited
    Parent,  ///< in which component it is
    Value,   ///< a property
    Heading, ///< a group of properties or a base class, for the rows below it
};

/// A row of the property grid.
struct PropertyRow
{
    QString name; ///< without the indent
    int indent = 0;
    QString value;
    QString type;
    PropertyKind kind = PropertyKind::Value;
    CZulType *target = nullptr; ///< the property, or the component for its name and its parent; not owned
    bool isSet = false;         ///< a property that has a value
};

/// The rows of a component: its name, its parent, its properties, and those of its base classes, each deeper by one
/// indent.
[[nodiscard]] std::vector<PropertyRow> RowsOf(const Environment &env, CZulClass &component);
/// Reads value and type of a row again.
void Refresh(const Environment &env, PropertyRow &row);

/// The name as the grid shows it: four blanks an indent.
[[nodiscard]] QString ShownName(const PropertyRow &row);

/// The numbers of the rows whose name or value has the text, in either case, ascending, with the headings above them.
/// All for an empty text.
[[nodiscard]] std::vector<int> RowsThatHave(const std::vector<PropertyRow> &rows, const QString &text);
