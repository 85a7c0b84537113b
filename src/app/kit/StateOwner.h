// SPDX-License-Identifier: MIT
#pragma once

#include "Profile.h"

/// A pane with a state that the settings store.
class IStateOwner
{
public:
    /// The entries to store when the program ends or the project's window closes.
    [[nodiscard]] virtual QList<ProfileEntry> State() const = 0;

protected:
    ~IStateOwner() = default;
};
