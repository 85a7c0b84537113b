// SPDX-License-Identifier: MIT
#include "ActionRoute.h"

IActionTarget *ActionRoute::Find(ActionId id, ActionState &state) const
{
    for (IActionTarget *target : targets()) {
        const auto found = target ? target->StateOf(id) : std::nullopt;
        if (!found)
            continue;
        state = *found;
        return target;
    }
    state = {false, false};
    return nullptr;
}

ActionState ActionRoute::StateOf(ActionId id) const
{
    ActionState state;
    (void)Find(id, state);
    return state;
}

void ActionRoute::Run(ActionId id) const
{
    ActionState state;
    IActionTarget *const target = Find(id, state);
    if (target && state.enabled)
        target->Run(id);
}
