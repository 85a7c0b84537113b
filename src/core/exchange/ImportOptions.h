// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <algorithm>
#include <vector>

/// What an import may do.
struct ImportOptions
{
    bool replace = false;               ///< put texts in place of others
    bool onlyExisting = false;          ///< make no rows and no languages
    bool acceptStale = false;           ///< import translations of other source texts than those of the table
    bool includeUnfinished = false;     ///< import translations that aren't finished
    std::vector<qint32> languages = {}; ///< import these languages only; empty for all
    // Of workbooks only.
    bool ownNames = false; ///< find a language by the project's own name of it first
    bool unguard = false;  ///< remove the guard against formulas (CsvGuard.h) in all formats
    QString sheet = {};    ///< the name or number of the sheet; empty for the first one

    [[nodiscard]] bool Wants(qint32 language) const
    {
        return languages.empty() || std::find(languages.begin(), languages.end(), language) != languages.end();
    }
};
