#pragma once

#include "Profile.h"

/// A pane of which the settings remember something.
class IStateOwner
{
public:
    /// What is to be stored when the program or the project's window ends.
    [[nodiscard]] virtual QList<ProfileEntry> State() const = 0;

protected:
    ~IStateOwner() = default;
};
