// SPDX-License-Identifier: MIT
#include "PlanTexts.h"

#include "CellLine.h"
#include "StringTable.h"

namespace
{

constexpr size_t SHOWN_CHANGES = 5;
constexpr qsizetype SHOWN_LINES = 5;
constexpr qsizetype SHOWN_TEXT = 40; // characters

} // namespace

QString PlanText(const StringTable &table, const std::vector<CellChange> &changes, const std::vector<NewRow> &rows,
                 const QStringList &refused)
{
    QString text = QStringLiteral("%1 cell(s) will change").arg(changes.size());
    text += rows.empty() ? QStringLiteral(". Continue?")
                         : QStringLiteral(", and %1 row(s) will be added. Continue?").arg(rows.size());
    for (size_t i = 0; i < changes.size() && i < SHOWN_CHANGES; ++i) {
        const CellChange &change = changes[i];
        text += QStringLiteral("\n%1%2, %3: \"%4\" becomes \"%5\"")
                    .arg(i == 0 ? QStringLiteral("\n") : QString(), table.CellText(change.row, StringTable::ID_COLUMN),
                         table.ColumnTitle(change.col), CellLine(table.CellText(change.row, change.col), SHOWN_TEXT),
                         CellLine(change.text, SHOWN_TEXT));
    }
    if (changes.size() > SHOWN_CHANGES)
        text += QStringLiteral("\n...");
    if (refused.isEmpty())
        return text;
    text += QStringLiteral("\n\nLeft out:\n") + refused.mid(0, SHOWN_LINES).join(u'\n');
    if (refused.size() > SHOWN_LINES)
        text += QStringLiteral("\n... and %1 more").arg(refused.size() - SHOWN_LINES);
    return text;
}
