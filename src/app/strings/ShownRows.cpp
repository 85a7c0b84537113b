// SPDX-License-Identifier: MIT
#include "ShownRows.h"

#include <algorithm>

int ShownRows::TableRow(int row, int tableRows) const
{
    if (!filtered)
        return row;
    return size_t(row) < filtered->size() ? (*filtered)[size_t(row)] : tableRows;
}

int ShownRows::PlaceOf(int tableRow) const
{
    return filtered ? int(std::lower_bound(filtered->begin(), filtered->end(), tableRow) - filtered->begin())
                    : tableRow;
}

int ShownRows::ShownRow(int tableRow, int tableRows) const
{
    if (tableRow < 0 || tableRow > tableRows)
        return -1;
    const int place = PlaceOf(tableRow);
    return TableRow(place, tableRows) == tableRow ? place : -1;
}

void ShownRows::Show(int tableRow)
{
    if (filtered)
        filtered->insert(filtered->begin() + PlaceOf(tableRow), tableRow);
}

void ShownRows::Insert(int tableRow)
{
    if (!filtered)
        return;
    for (auto behind = filtered->begin() + PlaceOf(tableRow); behind != filtered->end(); ++behind)
        ++*behind;
    Show(tableRow);
}

void ShownRows::Remove(int tableRow)
{
    if (!filtered)
        return;
    auto behind = filtered->begin() + PlaceOf(tableRow);
    if (behind != filtered->end() && *behind == tableRow)
        behind = filtered->erase(behind);
    for (; behind != filtered->end(); ++behind)
        --*behind;
}

void ShownRows::Reorder(const std::vector<int> &order)
{
    if (!filtered)
        return;
    std::vector<bool> isShown(order.size());
    for (const int row : *filtered)
        isShown[size_t(row)] = true;
    filtered->clear();
    for (size_t row = 0; row < order.size(); ++row) {
        if (isShown[size_t(order[row])])
            filtered->push_back(int(row));
    }
}
