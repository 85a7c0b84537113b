#pragma once

#include <QWidget>

/// A pane that consists of several, with bars between them.
class IPaneGroup
{
public:
    /// The panes that the user goes to one by one, in that order.
    [[nodiscard]] virtual QList<QWidget *> Parts() const = 0;
    /// The bars between them, which move by the arrow keys while they have the focus.
    [[nodiscard]] virtual QList<QWidget *> Dividers() const = 0;

protected:
    ~IPaneGroup() = default;
};
