// SPDX-License-Identifier: MIT
#pragma once

#include "ZulType.h"

#include <QString>

#include <vector>

class Environment;

/// The subject of a row of the property grid.
enum class PropertyKind
{
    Name,    ///< the component: its name is edited
    Parent,  ///< the component that contains it
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
    /// The property, or the component for its name and its parent. Not owned. Null for the row that represents the rows
    /// beyond MOST_ROWS.
    CZulType *target = nullptr;
    bool isSet = false; ///< a property that has a value, or a heading of such properties
};

/// The grid shows at most this many rows of a component, and then a row "...". A catalogue of a few lines can give a
/// class billions of properties.
inline constexpr size_t MOST_ROWS = 10'000;

/// The rows of a component: its name, its parent, its properties, and those of its base classes, each base class
/// indented by one more level. If there are more than MOST_ROWS, a row "..." follows the first MOST_ROWS.
[[nodiscard]] std::vector<PropertyRow> RowsOf(const Environment &env, CZulClass &component);
/// Reads value, type and `isSet` of a row again. An edit of a row can change those of the headings above it.
void Refresh(const Environment &env, PropertyRow &row);

/// The name as the grid shows it, with four blanks for each level of indent.
[[nodiscard]] QString ShownName(const PropertyRow &row);

/// The indexes, ascending, of the rows that have the text in their name or value, ignoring case, and of the headings
/// above them. All rows for an empty text.
[[nodiscard]] std::vector<int> RowsThatHave(const std::vector<PropertyRow> &rows, const QString &text);
