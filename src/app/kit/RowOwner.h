// SPDX-License-Identifier: MIT
#pragma once

#include "Text.h"

class CBaseRes;

/// A part of a resource's row.
struct RowPart
{
    bool isCell = false;       ///< the part is one text of a string, or its ID
    qint32 language = -1;      ///< of the text; -1 for the ID
    NarrowText component = {}; ///< the name of a component of a layout; may be empty
};

/// A row, or a part of it.
struct RowPlace
{
    const CBaseRes *resource = nullptr; ///< null for no row; of a string, its description
    RowPart part = {};
};

/// A pane that has a row for each resource of the folder that it shows.
class IRowOwner
{
public:
    /// Selects only the row of a resource, and gives the focus to a part of it. Removes a filter that hides the row,
    /// and shows a hidden column. A part that doesn't exist is ignored.
    virtual void GoTo(const CBaseRes &resource, const RowPart &part) = 0;
    /// Returns the part of a row that has the focus, or would have it if the pane had it.
    [[nodiscard]] virtual RowPlace FocusedRow() const = 0;

protected:
    ~IRowOwner() = default;
};
