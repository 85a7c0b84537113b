// SPDX-License-Identifier: MIT
#pragma once

#include "StringTable.h"

#include <unordered_map>

/// Maps the language of a record to the column of the table. For passes over all records, because asking the table
/// takes time proportional to the number of languages. Valid until the columns change.
class TextColumns
{
public:
    explicit TextColumns(const StringTable &table);

    /// The column of a language, or of the description; -1 for a language without one.
    [[nodiscard]] int Of(qint32 language) const
    {
        const auto at = size_t(qint64(language) + 1);
        if (at < direct.size())
            return direct[at];
        const auto found = further.find(language);
        return found == further.end() ? -1 : found->second;
    }

private:
    void Set(qint32 language, int col);

    std::vector<int> direct; // for the languages from -1 on with small numbers
    std::unordered_map<qint32, int> further;
};
