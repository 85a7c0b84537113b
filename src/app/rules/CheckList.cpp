// SPDX-License-Identifier: MIT
#include "CheckList.h"

#include <algorithm>
#include <numeric>

void CheckList::SetChecked(size_t row, bool checked)
{
    if (rows[row].checked == checked)
        return;
    rows[row].checked = checked;
    if (onCheck)
        onCheck(rows[row].data, checked);
}

void CheckList::SetAll(bool checked)
{
    for (size_t row = rows.size(); row-- > 0;)
        SetChecked(row, checked);
}

bool CheckList::CanSort(int sortState) const
{
    const qint64 column = qAbs(qint64(sortState));
    return column >= 1 && column <= qint64(columns.size());
}

std::vector<int> CheckList::Sort(int sortState, const std::function<int(qint32, qint32, int)> &compare)
{
    std::vector<int> order(rows.size());
    std::iota(order.begin(), order.end(), 0);
    if (!CanSort(sortState))
        return order;
    const int column = qAbs(sortState) - 1;
    std::stable_sort(order.begin(), order.end(), [&](int a, int b) {
        const int compared = compare(rows[size_t(a)].data, rows[size_t(b)].data, column);
        return sortState > 0 ? compared < 0 : compared > 0;
    });
    std::vector<Row> sorted;
    sorted.reserve(rows.size());
    for (const int before : order)
        sorted.push_back(std::move(rows[size_t(before)]));
    rows = std::move(sorted);
    return order;
}
