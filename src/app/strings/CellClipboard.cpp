// SPDX-License-Identifier: MIT
#include "CellClipboard.h"

#include "CellBlock.h"
#include "PlanTexts.h"
#include "StringGrid.h"
#include "ViewBoxes.h"
#include "WaitCursor.h"

#include <QClipboard>
#include <QGuiApplication>

std::vector<int> CellClipboard::ShownColumns() const
{
    std::vector<int> columns;
    const std::vector<int> widths = grid.Widths();
    for (int col = 0; col < table.ColumnCount(); ++col) {
        if (widths[size_t(col)] > 0)
            columns.push_back(col);
    }
    return columns;
}

void CellClipboard::Copy() const
{
    const std::vector<int> rows = grid.SelectedStrings();
    if (rows.empty())
        return;
    const WaitCursor cursor;
    const bool isOne = rows.size() == 1 && grid.currentIndex().isValid();
    const std::vector<int> columns = isOne ? std::vector<int>{grid.currentIndex().column()} : ShownColumns();
    QGuiApplication::clipboard()->setText(ToTsv(CellsOf(table, rows, columns)));
}

void CellClipboard::Paste()
{
    const QString text = QGuiApplication::clipboard()->text();
    if (text.isEmpty())
        return;
    const QModelIndex focus = grid.currentIndex();
    const PasteTarget target{focus.isValid() ? model.TableRow(focus.row()) : table.RowCount(),
                             focus.isValid() ? focus.column() : int(StringTable::ID_COLUMN), grid.SelectedStrings(),
                             model.ShownTableRows(), ShownColumns()};
    PastePlan plan;
    {
        const WaitCursor cursor;
        plan = PlanPaste(table, FromTsv(text), target);
    }
    if (plan.IsEmpty()) {
        const QString refused = plan.refused.mid(0, 5).join(u'\n');
        return boxes.ShowMessage(refused.isEmpty()
                                     ? QStringLiteral("The cells already have these texts.")
                                     : QStringLiteral("Nothing on the clipboard can be pasted.\n\n%1").arg(refused));
    }
    if (!boxes.AskOkCancel(PlanText(table, plan.changes, plan.rows, plan.refused)))
        return;
    const WaitCursor cursor;
    table.history.Run(std::make_unique<STR_SET_CMD>(table, plan.changes, std::move(plan.rows)));
}
