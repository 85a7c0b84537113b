// SPDX-License-Identifier: MIT
#pragma once

#include "Profile.h"

class Settings;

/// The settings of a list: the widths of its columns and its sort state. Each list has its own section.
class ListSettings
{
public:
    /// `controlId` is the number of the list's control. The settings must outlive this object.
    ListSettings(Settings &programSettings, int controlId);

    /// The width of a column in pixels; 0 hides it. Returns the fallback if no width is stored, or a width below 0.
    [[nodiscard]] int Width(int column, int fallback) const;

    /// The sort state of the list: column + 1 for ascending, -(column + 1) for descending, or 0. Returns the fallback
    /// if none is stored. The result can name a column that the list doesn't have, since the file may have been edited
    /// by hand.
    [[nodiscard]] int SortState(int fallback) const;

    /// The sort state after a click on the header of a column: the opposite direction if the list is sorted by that
    /// column, otherwise ascending by it.
    [[nodiscard]] static int NextSortState(int sortState, int column);

    /// The entries to store: the widths of the columns, with column 0 first in `widths`, and the sort state.
    [[nodiscard]] QList<ProfileEntry> State(const QList<int> &widths, int sortState) const;
    /// Stores the widths and the sort state. Writes the file once, or not at all if nothing has changed. Returns false
    /// if the file can't be written.
    bool Save(const QList<int> &widths, int sortState);

private:
    Settings &settings;
    QByteArray section;
};
