// SPDX-License-Identifier: MIT
#pragma once

#include "Text.h"

#include <utility>
#include <vector>

class Environment;

/// An element of a resource list. Its texts are UTF-8.
struct ListElement
{
    QByteArray tag; ///< empty for a conflict, whose children are the versions of ours and of theirs, or empty elements
    std::vector<std::pair<QByteArray, QByteArray>> attributes;
    QByteArray text;
    std::vector<ListElement> children;
    QByteArray key; ///< the tag and those attributes that make it the same element in another version of the list
    int row = 0;    ///< from 1

    [[nodiscard]] const QByteArray *Attribute(const QByteArray &name) const;
    /// Returns whether both are written in the same way.
    [[nodiscard]] bool operator==(const ListElement &other) const;
};

/// Returns whether elements of this tag have a text. The others have only elements.
[[nodiscard]] bool HasText(const QByteArray &tag);

/// Reads a resource list. Returns the first thing in it that a merge could lose or mistake, with its line; empty on
/// success.
[[nodiscard]] QString ReadList(const Environment &env, const QByteArray &bytes, ListElement &list);
