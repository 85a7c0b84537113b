// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <vector>

class CResModel;

/// How much of a string table is translated into one language, as numbers of rows.
struct LanguageStats
{
    qint32 number;
    QString name;
    int texts = 0;       ///< rows with a text that isn't empty
    int missing = 0;     ///< rows without a text
    int sameAsFirst = 0; ///< rows with the same text as the table's first language; 0 for the first language itself
};

/// Returns the languages of the table in their order. Sets `rows` to the number of the table's rows.
[[nodiscard]] std::vector<LanguageStats> StringStats(const CResModel &document, int &rows);
