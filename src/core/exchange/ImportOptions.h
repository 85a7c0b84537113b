// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <algorithm>
#include <vector>

/// What an import may do.
struct ImportOptions
{
    bool replace = false;           ///< put texts in place of others
    bool onlyExisting = false;      ///< make no rows and no languages
    bool acceptStale = false;       ///< import translations of other source texts than those of the table
    bool includeUnfinished = false; ///< import translations that aren't finished
    bool ownNames = false;          ///< find a language by the project's own name of it first
    std::vector<qint32> languages = {}; ///< import these languages only; empty for all

    [[nodiscard]] bool Wants(qint32 language) const
    {
        return languages.empty() || std::find(languages.begin(), languages.end(), language) != languages.end();
    }
};
