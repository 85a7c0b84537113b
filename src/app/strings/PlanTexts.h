#pragma once

#include "CellBlock.h"

/// What a plan would do, as a question that OK or Cancel answers: how many cells and rows, the first of the cells with
/// their old and new texts, and what can't be taken.
[[nodiscard]] QString PlanText(const StringTable &table, const std::vector<CellChange> &changes,
                               const std::vector<NewRow> &rows, const QStringList &refused);
