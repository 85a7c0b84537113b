// SPDX-License-Identifier: MIT
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
    /// The property, or the component for its name and its parent; not owned. Null for the row that stands for those
    /// beyond MOST_ROWS.
    CZulType *target = nullptr;
    bool isSet = false; ///< a property that has a value, or a heading of some that have
};

/// A catalogue of a few lines can give a class billions of properties. The grid shows the first of them.
inline constexpr size_t MOST_ROWS = 10'000;

/// The rows of a component: its name, its parent, its properties, and those of its base classes, each deeper by one
/// indent. A row "..." ends those of a class that has more than MOST_ROWS.
[[nodiscard]] std::vector<PropertyRow> RowsOf(const Environment &env, CZulClass &component);
/// Reads value, type and `isSet` of a row again. An edit of a row can change those of the headings above it.
void Refresh(const Environment &env, PropertyRow &row);

/// The name as the grid shows it: four blanks an indent.
[[nodiscard]] QString ShownName(const PropertyRow &row);

/// The numbers of the rows whose name or value has the text, in either case, ascending, with the headings above them.
/// All for an empty text.
[[nodiscard]] std::vector<int> RowsThatHave(const std::vector<PropertyRow> &rows, const QString &text);
