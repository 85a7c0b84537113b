#pragma once

/// A pane in which something can be edited in place.
class IEditOwner
{
public:
    /// Commits what is being edited, as leaving the editor does. False when it is refused, after a message to the user;
    /// true also when nothing is edited.
    [[nodiscard]] virtual bool TakeEdit() = 0;

protected:
    ~IEditOwner() = default;
};
