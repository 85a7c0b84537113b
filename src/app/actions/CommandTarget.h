#pragma once

#include <optional>

/// What a menu shows of a command.
struct CommandState
{
    bool enabled = true;
    bool checked = false;
};

/// Anything that takes commands of menus, keys and the tool bar. Of those that are asked in turn (CommandRoute) the
/// first that claims a command has it.
class ICommandTarget
{
public:
    /// Nothing when the command isn't this target's.
    [[nodiscard]] virtual std::optional<CommandState> StateOf(int command) const = 0;
    /// Carries out a command that it claims and that is enabled.
    virtual void Run(int command) = 0;

protected:
    ~ICommandTarget() = default;
};
