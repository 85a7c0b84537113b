// SPDX-License-Identifier: MIT
#pragma once

/// A pane in which something can be edited in place.
class IEditOwner
{
public:
    /// Commits what is being edited, as leaving the editor does. If it is refused, tells the user and returns false.
    /// Returns true if nothing is being edited.
    [[nodiscard]] virtual bool TakeEdit() = 0;

protected:
    ~IEditOwner() = default;
};
