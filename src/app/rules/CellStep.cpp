// SPDX-License-Identifier: MIT
#include "CellStep.h"

#include <algorithm>

std::optional<CellAt> NextCell(CellAt from, CellStep step, int rows, const std::vector<int> &widths)
{
    if (step == CellStep::Up || step == CellStep::Down) {
        const CellAt to{step == CellStep::Up ? from.row - 1 : from.row + 1, from.col};
        return to.row >= 0 && to.row < rows ? std::optional(to) : std::nullopt;
    }
    const int columns = int(widths.size());
    if (std::none_of(widths.begin(), widths.end(), [](int width) { return width > 0; }))
        return std::nullopt;
    const int by = step == CellStep::Next ? 1 : -1;
    CellAt at = from;
    do {
        at.col += by;
        if (at.col < 0 || at.col >= columns)
            at = {at.row + by, by > 0 ? 0 : columns - 1};
        if (at.row < 0 || at.row >= rows)
            return std::nullopt;
    } while (widths[size_t(at.col)] <= 0);
    return at;
}
