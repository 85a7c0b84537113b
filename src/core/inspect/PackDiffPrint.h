// SPDX-License-Identifier: MIT
#pragma once

#include "PackDiff.h"
#include "PackNames.h"

/// Two packed files, or what is selected of them, for a listing of their differences.
struct ComparedPacks
{
    const std::vector<PackedPart> &before;
    const PackNames &namesBefore;
    const std::vector<PackedPart> &after;
    const PackNames &namesAfter;
    const std::vector<DiffRow> &rows; ///< of ComparePacks
};

/// A listing for people, UTF-8: a line for each row, and the sizes of the payloads and of the files.
[[nodiscard]] QByteArray DiffText(const ComparedPacks &packs);

/// The same as one JSON object: `version`, `payload` and `file` (`before`, `after`, `delta`), `rows` (`change`, what
/// WritePart writes, `number_before` if the number was another one, `before`, `after`, `delta`).
[[nodiscard]] QByteArray DiffJson(const ComparedPacks &packs);
