#pragma once

#include "Actions.h"

#include <optional>

/// What a menu shows of an action.
struct ActionState
{
    bool enabled = true;
    bool checked = false;
};

/// Anything that carries out actions of menus, keys and the tool bar. Of those that are asked in turn (ActionRoute) the
/// first that claims an action has it.
class IActionTarget
{
public:
    /// Nothing when the action isn't this target's.
    [[nodiscard]] virtual std::optional<ActionState> StateOf(ActionId id) const = 0;
    /// Carries out an action that it claims and that is enabled.
    virtual void Run(ActionId id) = 0;

protected:
    ~IActionTarget() = default;
};
