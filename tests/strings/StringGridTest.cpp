// SPDX-License-Identifier: MIT
#include "GridWalk.h"
#include "TableProject.h"

TEST(StringGrid, UndoAndRedoInASortedListRestoreTheSameTree)
{
    for (unsigned seed = 1; seed <= 200 && !testing::Test::HasFailure(); ++seed) {
        SCOPED_TRACE(seed);
        FakeGrid grid;
        GridWalk walk(seed, grid);
        walk.pastesFail = false;
        walk.messages = [&] { return grid.messages; };
        CommandHistory &history = walk.table.history;
        const QString start = walk.Stored();
        for (size_t step = 0; step < StringTable::MOST_UNDO; ++step)
            walk.Step();
        while (history.CanRedo())
            history.Redo();
        const QString end = walk.Stored();
        for (int round = 0; round < 2; ++round) {
            while (history.CanUndo())
                history.Undo();
            EXPECT_EQ(walk.Stored(), start);
            walk.table.Reorder(StringOrder(walk.table, walk.Below(2) ? 4 : -1));
            while (history.CanRedo())
                history.Redo();
            EXPECT_EQ(walk.Stored(), end);
        }
    }
}
