// SPDX-License-Identifier: MIT
#pragma once

#include "PackParts.h"

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
