// SPDX-License-Identifier: MIT
#pragma once

#include "PackNames.h"
#include "PackSelection.h"

/// Two packed files, for a listing of their differences.
struct ComparedPacks
{
    const std::vector<PackedPart> &before;
    const PackNames &namesBefore;
    const std::vector<PackedPart> &after;
    const PackNames &namesAfter;
    const std::vector<DiffRow> &rows;       ///< of ComparePacks
    const SelectedDiff *selected = nullptr; ///< what is listed instead of all rows
};

/// A listing for people, UTF-8: a line for each row, and the sizes of the selected parts, the payloads and the files.
[[nodiscard]] QByteArray DiffText(const ComparedPacks &packs);

/// The same as one JSON object: `version`, `payload` and `file` (`before`, `after`, `delta`), `rows` (`change`, what
/// WritePart writes, `number_before` if the number was another one, `before`, `after`, `delta`). With a selection,
/// `selected` has the sizes of its parts.
[[nodiscard]] QByteArray DiffJson(const ComparedPacks &packs);
