// SPDX-License-Identifier: MIT
#pragma once

#include "ActionTarget.h"

#include <functional>
#include <vector>

/// Finds the target of an action: the first target that claims it, among those that take part at the moment.
class ActionRoute
{
public:
    /// Returns the targets in the order in which they are asked. Null pointers are skipped.
    std::function<std::vector<IActionTarget *>()> targets;

    /// The state of an action. An action that no target claims is disabled.
    [[nodiscard]] ActionState StateOf(ActionId id) const;
    /// Runs an action. Does nothing while it is disabled.
    void Run(ActionId id) const;

private:
    [[nodiscard]] IActionTarget *Find(ActionId id, ActionState &state) const;
};
