#include "CommandRoute.h"

ICommandTarget *CommandRoute::Find(int command, CommandState &state) const
{
    for (ICommandTarget *target : targets()) {
        const auto found = target ? target->StateOf(command) : std::nullopt;
        if (!found)
            continue;
        state = *found;
        return target;
    }
    state = {false, false};
    return nullptr;
}

CommandState CommandRoute::StateOf(int command) const
{
    CommandState state;
    (void)Find(command, state);
    return state;
}

void CommandRoute::Run(int command) const
{
    CommandState state;
    ICommandTarget *const target = Find(command, state);
    if (target && state.enabled)
        target->Run(command);
}
