// SPDX-License-Identifier: MIT
#pragma once

#include "CellBlock.h"

/// The text of a question with OK and Cancel that describes a plan: the number of cells and rows, the first cells with
/// their old and new texts, and what can't be applied.
[[nodiscard]] QString PlanText(const StringTable &table, const std::vector<CellChange> &changes,
                               const std::vector<NewRow> &rows, const QStringList &refused);
