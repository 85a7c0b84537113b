#pragma once

/// A pane in which something can be edited in place.
class IEditOwner
{
public:
    /// Takes what is being edited, as leaving the editor does. False when it was refused, which the user is told; true
    /// also when nothing is edited.
    [[nodiscard]] virtual bool TakeEdit() = 0;

protected:
    ~IEditOwner() = default;
};
