// SPDX-License-Identifier: MIT
#include "CellBlock.h"
#include "InOneLine.h"
#include "StringTable.h"
#include "TextFinder.h"

#include <optional>

namespace
{

/// Replaces everything that the finder finds in a text by `replacement`, from left to right. Returns nullopt if it
/// finds nothing.
std::optional<QString> Replaced(QStringView text, const TextFinder &finder, const QString &replacement)
{
    QString result;
    qsizetype end = 0; // of the part that has been copied
    for (qsizetype at = finder.IndexIn(text); at >= 0; at = finder.IndexIn(text, end)) {
        result.append(text.sliced(end, at - end)).append(replacement);
        end = at + finder.Size();
    }
    return end == 0 ? std::nullopt : std::optional(result.append(text.sliced(end)));
}

} // namespace

std::vector<CellChange> PlanReplace(const StringTable &table, const std::vector<int> &rows,
                                    const std::vector<int> &columns, const QString &text, bool matchCase,
                                    const QString &replacement)
{
    std::vector<CellChange> changes;
    if (text.isEmpty())
        return changes;
    const TextFinder finder(text, matchCase);
    const QString line = InOneLine(replacement);
    for (const int row : rows) {
        for (const int col : columns) {
            if (col < StringTable::DESCRIPTION_COLUMN)
                continue;
            const QStringView now = table.CellView(row, col);
            if (auto then = Replaced(now, finder, line); then && *then != now)
                changes.push_back({row, col, std::move(*then)});
        }
    }
    return changes;
}
