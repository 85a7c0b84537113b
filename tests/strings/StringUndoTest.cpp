// SPDX-License-Identifier: MIT
#include "TableProject.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{

const QByteArray ROWS =
    TWO_LANGUAGES + "ID_A|Normal|a||\nID_B|Normal|b||\nID_C|Normal|c||\nID_D|Normal|d||\n##number|4\n";

} // namespace

TEST(StringUndo, RestoresOldValuesEvenIfTheyAreNotValidInput)
{
    TableProject project(TWO_LANGUAGES + "1st id|Push|d|a|\nid_low|Normal||b|\n##number|2\n");
    const QString start = project.Dump();
    project.Mod(0, 0, u"id_first"_s);
    project.Mod(1, 0, u"ID_LOW"_s);
    project.table.history.Undo();
    project.table.history.Undo();
    EXPECT_EQ(project.Dump(), start);
    project.Delete({0, 1});
    project.table.history.Undo();
    EXPECT_EQ(project.Dump(), start);
    EXPECT_EQ(project.grid.TakeMessage(), 0);
}

TEST(StringUndo, RestoresARowBetweenItsRemainingNeighbours)
{
    for (const auto &[gone, tree] : {std::pair(QByteArrayList{}, "ID_A ID_B ID_C ID_D ID_E"),
                                     {{"ID_A"}, "ID_B ID_C ID_D ID_E"},
                                     {{"ID_C"}, "ID_A ID_B ID_D ID_E"},
                                     {{"ID_A", "ID_C"}, "ID_D ID_B ID_E"}}) {
        TableProject project(ROWS);
        project.table.Reorder({3, 1, 0, 2}); // D B A C
        project.Delete({1});
        for (const QByteArray &id : gone)
            ASSERT_EQ(project.table.DeleteRow(project.table.RowOf(id, 0)), 0);
        ASSERT_EQ(project.table.CreateRow(u"ID_E"_s, project.table.RowCount()), 0);
        project.table.history.Undo();
        EXPECT_EQ(project.table.CellText(1, 0), u"ID_B"_s);
        EXPECT_EQ(NamesIn(*project.strings.subfolders.front()), tree);
    }
}

TEST(StringUndo, KeepsTheTextsOfALanguageWithoutAColumn)
{
    TableProject project(TWO_LANGUAGES + "ID_A|Normal|a|x|y\n##number|1\n");
    project.AddFolder(project.strings, KIND_LANGUAGE, 20, u"Chinese"_s);
    EXPECT_EQ(project.Read("Number of Language|1\nString ID|Description|Chinese(20)\nID_A|a|z\n##number|1\n"), 0);
    const std::string before = project.Written();
    project.Delete({0});
    project.table.history.Undo();
    EXPECT_EQ(project.Written(), before);
}

TEST(StringUndo, UndoesAKindThatTheCallerFlippedFirst)
{
    TableProject project(ROWS);
    project.table.Head(0)->Id()->push = true;
    project.Run<STR_MOD_CMD>(0, 1, u"Normal"_s, u"Push"_s);
    EXPECT_EQ(project.table.CellText(0, 1), u"Push"_s);
    project.table.history.Undo();
    EXPECT_EQ(project.table.CellText(0, 1), u"Normal"_s);
    project.table.history.Redo();
    EXPECT_EQ(project.table.CellText(0, 1), u"Push"_s);
}

TEST(StringUndo, ARebuildKeepsTheCopiedRowsThatStillExist)
{
    TableProject project(ROWS);
    project.table.Copy({1, 2});
    project.table.Rebuild();
    project.Paste();
    EXPECT_EQ(project.table.CellText(4, 0), u"ID_B_COPY_0001"_s);
    CResFolder &heads = *project.strings.subfolders.front();
    EXPECT_TRUE(heads.DeleteResource(project.table.Head(2)));
    project.table.Rebuild();
    EXPECT_TRUE(project.table.Copied().empty());
}

TEST(StringUndo, FindsRowsAfterTheyMoved)
{
    TableProject project(ROWS);
    project.table.Reorder({2, 3, 1, 0}); // C D B A
    EXPECT_EQ(NamesIn(*project.strings.subfolders.front()), "ID_A ID_B ID_C ID_D");
    ASSERT_EQ(project.table.DeleteRow(1), 0);
    EXPECT_EQ(project.table.RowOf("ID_A", 0), 2);
    EXPECT_EQ(project.table.RowOf("ID_C", 2), 0);
    EXPECT_EQ(project.table.RowOf("ID_D", 1), -1);
}

TEST(StringUndo, DeletingALanguageRemovesItsColumnAndOtherFoldersKeepTheHistory)
{
    TableProject project(TWO_LANGUAGES + "ID_A|Normal|a|x|y\n##number|1\n");
    project.Mod(0, 4, u"z"_s);
    CResFolder &layouts = project.AddFolder(project.root, KIND_LAYOUTS);
    project.table.TreeGoes(project.AddFolder(layouts, KIND_RESO_LAYOUTS, 9));
    EXPECT_EQ(project.Dump(), u"ID_A Normal a x z"_s);
    project.table.TreeGoes(*project.Language(9));
    EXPECT_TRUE(project.strings.DeleteFolder(project.Language(9)));
    EXPECT_EQ(project.Dump(), u"ID_A Normal a z"_s);
    project.table.history.Undo();
    EXPECT_EQ(project.Dump(), u"ID_A Normal a y"_s);
    project.table.TreeGoes(project.strings);
    EXPECT_EQ(project.table.RowCount(), 0);
    EXPECT_FALSE(project.table.history.CanRedo());
}
