// SPDX-License-Identifier: MIT
#pragma once

class CBaseRes;

/// A pane that has a row for each resource of the folder that it shows.
class IRowOwner
{
public:
    /// Selects only the row of a resource, and gives it the focus. Removes a filter that hides the row.
    virtual void GoTo(const CBaseRes &resource) = 0;

protected:
    ~IRowOwner() = default;
};
