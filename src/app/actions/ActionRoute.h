#pragma once

#include "ActionTarget.h"

#include <functional>
#include <vector>

/// Finds who has an action: of the targets that take part at the moment, the first that claims it.
class ActionRoute
{
public:
    /// Gives the targets in the order in which they are asked; those that are null are passed over.
    std::function<std::vector<IActionTarget *>()> targets;

    /// An action that nobody claims is disabled.
    [[nodiscard]] ActionState StateOf(ActionId id) const;
    /// Does nothing while the action is disabled.
    void Run(ActionId id) const;

private:
    [[nodiscard]] IActionTarget *Find(ActionId id, ActionState &state) const;
};
