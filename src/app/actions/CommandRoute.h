#pragma once

#include "CommandTarget.h"

#include <functional>
#include <vector>

/// Finds who has a command: of the targets that stand in the way at the moment, the first that claims it.
class CommandRoute
{
public:
    /// Gives the targets in the order in which they are asked; those that are null are passed over.
    std::function<std::vector<ICommandTarget *>()> targets;

    /// A command that nobody claims is disabled.
    [[nodiscard]] CommandState StateOf(int command) const;
    /// Does nothing while the command is disabled.
    void Run(int command) const;

private:
    [[nodiscard]] ICommandTarget *Find(int command, CommandState &state) const;
};
