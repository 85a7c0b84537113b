// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

/// A pane that consists of several, with bars between them.
class IPaneGroup
{
public:
    /// The panes, in the order in which the user moves through them.
    [[nodiscard]] virtual QList<QWidget *> Parts() const = 0;
    /// The bars between the panes. The arrow keys move a bar while it has the focus.
    [[nodiscard]] virtual QList<QWidget *> Dividers() const = 0;

protected:
    ~IPaneGroup() = default;
};
