#pragma once

#include "ResFolder.h"

#include <unordered_map>
#include <vector>

/// Finds the record of an ID in a folder in a time that doesn't grow with the number of languages.
///
/// The first look for an ID of many languages makes an index of all cells, so whoever adds a record from then on says
/// so. The folders must outlive it; nothing else may change them meanwhile.
class CellFinder
{
public:
    /// `languages` are the folders that will be asked for.
    explicit CellFinder(const std::vector<CResFolder *> &languages) : folders(languages) {}

    /// As `folder.FindResource(id)`.
    [[nodiscard]] CStringRes *Find(const IDRecord *id, const CResFolder &folder);
    /// `record` has come into its folder, which had none of that ID.
    void Added(CStringRes *record);

private:
    using Cells = std::unordered_map<const IDRecord *, CStringRes *>;
    void MakeIndex();

    const std::vector<CResFolder *> &folders;
    std::unordered_map<const CResFolder *, Cells> index;
};
