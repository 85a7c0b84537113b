// SPDX-License-Identifier: MIT
#pragma once

#include "PackDiff.h"

#include <optional>

class PackNames;

/// One item, one language or one entry of a packed file.
class PackSelection
{
public:
    /// Reads "language:N", the number of an item, or the name of an item or entry. Returns nothing if it isn't a
    /// language's number behind "language:".
    [[nodiscard]] static std::optional<PackSelection> Parse(const QString &word, const PackNames &names);

    /// Returns whether a part belongs to it. Tables, padding and prefixes of several items don't.
    [[nodiscard]] bool Has(const PackedPart &part) const;
    /// Removes all else from the payload. Returns false if nothing is left.
    [[nodiscard]] bool KeepOnly(const Environment &env, InspectResult &result) const;

private:
    std::optional<quint32> language;
    std::optional<quint32> item;
    QString entry;
};

/// What a selection has of the differences of two packed files.
struct SelectedDiff
{
    std::vector<DiffRow> rows;
    qint64 before = 0; ///< bytes of all selected parts, those that are equal in both files too
    qint64 after = 0;
    bool isEmpty = true; ///< neither file has a part of the selection
};

/// Selects the rows of which either part is selected, in the file that has it: with one number, a renumbered resource
/// is in the rows under its old and its new number. The deltas of the rows add up to that of the sizes.
[[nodiscard]] SelectedDiff SelectRows(const std::vector<DiffRow> &rows, const std::vector<PackedPart> &before,
                                      const PackSelection &ofBefore, const std::vector<PackedPart> &after,
                                      const PackSelection &ofAfter);
