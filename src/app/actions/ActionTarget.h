// SPDX-License-Identifier: MIT
#pragma once

#include "Actions.h"

#include <optional>

/// The state of an action, as a menu shows it.
struct ActionState
{
    bool enabled = true;
    bool checked = false;
};

/// An object that runs actions of menus, keys and the tool bar. Targets are asked in turn (ActionRoute), and the first
/// that claims an action gets it.
class IActionTarget
{
public:
    /// The state of an action; nothing if this target doesn't claim it.
    [[nodiscard]] virtual std::optional<ActionState> StateOf(ActionId id) const = 0;
    /// Runs an action. The target must claim it, and it must be enabled.
    virtual void Run(ActionId id) = 0;

protected:
    ~IActionTarget() = default;
};
