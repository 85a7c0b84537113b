#pragma once

#include "Profile.h"

class Settings;

/// What the settings remember of a list: the widths of its columns, and how it is sorted. Each list has a section of
/// its own.
class ListSettings
{
public:
    /// `controlId` is the number of the list's control. The settings must live longer.
    ListSettings(Settings &programSettings, int controlId);

    /// The width of a column in pixels; 0 hides it. The fallback where none is stored, or one below 0.
    [[nodiscard]] int Width(int column, int fallback) const;

    /// How the list is sorted: column + 1 for ascending, -(column + 1) for descending, or 0. The fallback where none is
    /// stored. A file that was edited by hand may name a column that the list doesn't have.
    [[nodiscard]] int SortState(int fallback) const;

    /// The sort state after a click on a header: the other direction for the column of the present order, else
    /// ascending by that column.
    [[nodiscard]] static int NextSortState(int sortState, int column);

    /// What is to be stored: the widths, that of column 0 first in `widths`, and the sort state.
    [[nodiscard]] QList<ProfileEntry> State(const QList<int> &widths, int sortState) const;
    /// Stores it in one write of the file, or none where nothing has changed. False when it can't be written.
    bool Save(const QList<int> &widths, int sortState);

private:
    Settings &settings;
    QByteArray section;
};
