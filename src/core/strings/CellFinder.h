// SPDX-License-Identifier: MIT
#pragma once

#include "ResFolder.h"

#include <unordered_map>
#include <vector>

/// Finds the record of an ID in a folder. The time doesn't depend on the number of languages.
///
/// The first look-up of an ID with many languages makes an index of all cells. The caller must call Added for each
/// record that is added after that. The folders must outlive this object, and must not change in other ways meanwhile.
class CellFinder
{
public:
    /// `languages` are the folders that will be searched.
    explicit CellFinder(const std::vector<CResFolder *> &languages) : folders(languages) {}

    /// The same as `folder.FindResource(id)`.
    [[nodiscard]] CStringRes *Find(const IDRecord *id, const CResFolder &folder);
    /// Call this after `record` was added to its folder, which had no record of that ID.
    void Added(CStringRes *record);

private:
    using Cells = std::unordered_map<const IDRecord *, CStringRes *>;
    void MakeIndex();

    const std::vector<CResFolder *> &folders;
    std::unordered_map<const CResFolder *, Cells> index;
};
