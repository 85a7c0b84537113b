// SPDX-License-Identifier: MIT
#pragma once

#include "StringCommands.h"
#include "StringProject.h"

/// A grid that records the last message and the last text.
struct FakeGrid : IStringGrid
{
    void RowInserted(int) override { ++shownRows; }
    void RowRemoved(int) override { --shownRows; }
    void CellShows(int, int, const QString &text) override { lastText = text; }
    void ReportCellError(int code, int, int) override { ShowMessage(code); }
    void ShowMessage(int code) override
    {
        message = code;
        ++messages;
    }

    int TakeMessage() { return std::exchange(message, 0); }

    int shownRows = 0;
    int message = 0;
    int messages = 0;
    QString lastText;
};

struct TableProject : StringProject
{
    TableProject() { table.Rebuild(); }
    explicit TableProject(const QByteArray &file)
    {
        EXPECT_EQ(Read(file), 0);
        table.Rebuild();
        grid.shownRows = table.RowCount();
    }

    void Mod(int row, int col, const QString &text) { Run<STR_MOD_CMD>(row, col, text); }
    void Type(int col, const QString &text) { Run<STR_IST_CMD>(table.RowCount(), col, text); }
    void Delete(const std::vector<int> &some) { Run<STR_DEL_CMD>(some); }
    void Paste() { table.history.Run(std::make_unique<STR_PST_CMD>(table)); }
    template <typename T, typename... Arguments> void Run(Arguments &&...arguments)
    {
        table.history.Run(std::make_unique<T>(table, std::forward<Arguments>(arguments)...));
    }

    /// Returns IDs, kinds and texts, row by row.
    QString Dump()
    {
        QStringList lines;
        for (int row = 0; row < table.RowCount(); ++row) {
            QStringList cells;
            for (int col = 0; col < table.ColumnCount(); ++col)
                cells << table.CellText(row, col);
            lines << cells.join(u' ');
        }
        return lines.join(u'|');
    }

    FakeGrid grid;
    StringTable table{*this, grid};
};

inline const QByteArray TWO_LANGUAGES =
    "Number of Language|2\nString ID|Resource Type|Description|English(9)|French(12)\n";
