// SPDX-License-Identifier: MIT
#pragma once

#include "LayoutFileObject.h"

/// A layout of a project, for a listing.
struct ListedLayout
{
    QString resolution; ///< "240x320", or "Default"
    QString file;       ///< as the project names it
    const LayoutObject *layout;
};

/// One indented line for each component: class, name, the member of its parent that it is, properties.
[[nodiscard]] QByteArray LayoutsText(const Environment &env, const std::vector<ListedLayout> &layouts);
/// The same as JSON; a component's properties are in the order of the file.
[[nodiscard]] QByteArray LayoutsJson(const Environment &env, const std::vector<ListedLayout> &layouts);
