#pragma once

#include "ResFolder.h"

#include <unordered_map>

/// Finds the record of an ID in a folder in a time that doesn't grow with the number of languages.
///
/// An ID of many languages gets an index of its own at the first look, so whoever adds a record says so. Lives no longer
/// than one read of a file.
class CellFinder
{
public:
    /// As `folder.FindResource(id)`.
    [[nodiscard]] CStringRes *Find(const IDRecord *id, const CResFolder *folder);
    /// `record` has come into its folder, which had none of that ID.
    void Added(CStringRes *record);

private:
    using ByFolder = std::unordered_map<const CResFolder *, CStringRes *>;
    std::unordered_map<const IDRecord *, ByFolder> wide;
};
