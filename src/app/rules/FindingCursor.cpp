// SPDX-License-Identifier: MIT
#include "FindingCursor.h"

namespace
{

bool IsAt(const Finding &finding, const FocusedPlace &place)
{
    return finding.id == place.id && (!place.isCell || finding.language == place.language);
}

int Wrapped(int row, int count)
{
    return (row + count) % count;
}

} // namespace

void FindingCursor::Set(int row)
{
    at = row;
    isThere = row >= 0 && row < list.RowCount();
    if (isThere)
        finding = list.At(row);
}

void FindingCursor::ListChanged()
{
    if (at < 0)
        return;
    const int row = list.RowOf(finding, at);
    isThere = row >= 0;
    if (!isThere)
        return;
    at = row;
    finding = list.At(row);
}

/// Returns the row after or before those of a cell, or that of the first finding of its row or resource; nothing if
/// there is no finding.
std::optional<int> FindingCursor::StepFrom(const FocusedPlace &focus, int step) const
{
    int ofRow = -1;
    int firstOfCell = -1;
    int lastOfCell = -1;
    for (int row = 0; row < list.RowCount(); ++row) {
        const Finding &each = list.At(row);
        if (each.id != focus.id)
            continue;
        ofRow = ofRow < 0 ? row : ofRow;
        if (!focus.isCell || each.language != focus.language)
            continue;
        firstOfCell = firstOfCell < 0 ? row : firstOfCell;
        lastOfCell = row;
    }
    if (ofRow < 0)
        return std::nullopt;
    if (lastOfCell >= 0)
        return step > 0 ? lastOfCell + 1 : firstOfCell - 1;
    return step > 0 ? ofRow : ofRow - 1;
}

int FindingCursor::Step(int step, const std::optional<FocusedPlace> &focus) const
{
    const int count = list.RowCount();
    if (count == 0)
        return -1;
    const bool isHere = at >= 0 && (!focus || IsAt(finding, *focus));
    if (focus && !isHere) {
        if (const auto row = StepFrom(*focus, step))
            return Wrapped(*row, count);
    }
    if (at < 0)
        return step > 0 ? 0 : count - 1;
    if (isThere)
        return Wrapped(at + step, count);
    const int next = qMin(at, count); // the finding behind the gap
    return Wrapped(step > 0 ? next : next - 1, count);
}
