#pragma once

class CBaseRes;

/// A pane that has a row for each resource of the folder that it shows.
class IRowOwner
{
public:
    /// Selects the row of a resource alone and gives it the focus. A filter that hides it ends.
    virtual void GoTo(const CBaseRes &resource) = 0;

protected:
    ~IRowOwner() = default;
};
