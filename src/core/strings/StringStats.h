#pragma once

#include <QString>

#include <vector>

class CResModel;

/// How far one language of a string table is translated, in rows.
struct LanguageStats
{
    qint32 number;
    QString name;
    int texts = 0;       ///< with a text that isn't empty
    int missing = 0;     ///< without
    int sameAsFirst = 0; ///< with the text that the table's first language has, too; for that itself 0
};

/// The languages of the table in their order; `rows` becomes the number of its rows.
[[nodiscard]] std::vector<LanguageStats> StringStats(const CResModel &document, int &rows);
