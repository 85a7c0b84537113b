// SPDX-License-Identifier: MIT
#include "StringOrder.h"

#include "TableProject.h"

using namespace Qt::StringLiterals;

TEST(StringOrder, SortsByTheColumnAndIsStable)
{
    TableProject project(TWO_LANGUAGES + "ID_2|Push|b|1|\nID_10|Normal|a||x\nID_3|Push|B|1|\nID_1|Normal|a|2|\n"
                                         "##number|4\n");
    for (const auto &[state, ids] : {std::pair(1, "1 2 3 10"),
                                     {-1, "10 3 2 1"},
                                     {2, "1 10 2 3"},
                                     {-2, "3 2 10 1"},
                                     {3, "10 1 3 2"},
                                     {-3, "2 3 10 1"},
                                     {4, "10 2 3 1"},
                                     {-4, "1 2 3 10"},
                                     {0, "2 10 3 1"},
                                     {6, "2 10 3 1"}}) {
        project.table.Rebuild();
        QStringList shown;
        for (const int row : StringOrder(project.table, state))
            shown << project.table.CellText(row, 0).sliced(3);
        EXPECT_EQ(shown.join(u' ').toStdString(), ids) << state;
        project.table.Reorder(StringOrder(project.table, state));
        EXPECT_EQ(project.table.CellText(0, 0).sliced(3), shown[0]);
        EXPECT_TRUE(project.table.IsNewRow(4)) << "the new-row line is the last";
    }
}
