#pragma once

#include "CLayoutRes.h"

/// A layout of a project, for printing.
struct ListedLayout
{
    QString resolution; ///< "240x320", or "Default"
    QString file;       ///< as the project names it
    const LayoutObject *layout;
};

/// One line a component, indented: class, name, the member that it is, properties.
[[nodiscard]] QByteArray LayoutsText(const Environment &env, const std::vector<ListedLayout> &layouts);
[[nodiscard]] QByteArray LayoutsJson(const Environment &env, const std::vector<ListedLayout> &layouts);
