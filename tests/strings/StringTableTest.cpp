// SPDX-License-Identifier: MIT
#include "PlainTable.h"
#include "Spreadsheet.h"
#include "TableProject.h"

#include <rapidcheck.h>

using namespace Qt::StringLiterals;

namespace
{

/// Returns the table of the tree, and checks every rule for its rows.
PlainTable TableOfTree(TableProject &project)
{
    PlainTable table;
    const auto &folders = project.strings.subfolders;
    size_t records = 0;
    for (CBaseRes *res : folders.front()->resources) {
        auto *head = static_cast<CStringRes *>(res);
        RC_ASSERT(head == project.table.Head(int(table.rows.size())));
        PlainTable::Row row{project.env.NarrowToWide(head->Id()->name), head->Id()->push, {}};
        PlainTable::SetText(row, StringTable::DESCRIPTION_COLUMN, head->Text().toString());
        RC_ASSERT(!row.push || head->Id()->pushKind == PUSH_STRING);
        int cells = 0;
        for (size_t n = 1; n < folders.size(); ++n) {
            const CStringRes *cell = head->FindLanguage(folders[n]->index);
            if (!cell)
                continue;
            RC_ASSERT(cell->Folder() == folders[n].get() && cell->Id() == head->Id());
            PlainTable::SetText(row, StringTable::FIRST_LANGUAGE_COLUMN + int(n) - 1, cell->Text().toString());
            ++cells;
        }
        RC_ASSERT(head->Id()->refs == cells + 1);
        records += size_t(cells) + 1;
        table.rows.push_back(row);
    }
    size_t held = 0;
    for (const auto &folder : folders)
        held += folder->resources.Count();
    RC_ASSERT(held == records);
    RC_ASSERT(project.table.RowCount() == int(table.rows.size()));
    RC_ASSERT(project.grid.shownRows == int(table.rows.size()));
    return table;
}

/// Returns something to type into a cell: a text, an ID or a kind.
QString SomeText()
{
    static const std::vector<QString> TEXTS{u"ID_A"_s, u" id_x "_s, u"ID_Y"_s, u"bad name"_s, u""_s,
                                            u"push"_s, u"Hello"_s,  u"1X"_s,   u"Normal"_s,   QString(60, u'L')};
    return *rc::gen::elementOf(TEXTS);
}

/// A table, and the plain tables that undo and redo must restore.
struct Walk
{
    void Step()
    {
        PlainTable plain = states[now];
        const int rows = int(plain.rows.size());
        const int row = *rc::gen::inRange(0, std::max(rows, 1));
        const int col = *rc::gen::inRange(0, real.table.ColumnCount());
        const QString text = SomeText();
        switch (*rc::gen::inRange(0, 7)) {
        case 0:
        case 1:
            real.Mod(row, col, text);
            return Ran(plain.Edit(size_t(row), col, text), plain);
        case 2:
            real.Type(col, text);
            return Ran(plain.Insert(col, text), plain);
        case 3: {
            std::vector<int> some;
            for (int at = 0; at < rows; ++at) {
                if (*rc::gen::inRange(0, 3) == 0)
                    some.push_back(at);
            }
            real.Delete(some);
            plain.Remove(some);
            return Ran(true, plain);
        }
        case 4:
            real.table.Copy({row});
            real.Paste();
            return Ran(plain.AppendCopy(size_t(row)), plain);
        case 5:
            real.table.history.Undo();
            now -= now > 0;
            return;
        default:
            real.table.history.Redo();
            now += now + 1 < states.size();
        }
    }

    void Ran(bool isDone, const PlainTable &after)
    {
        states.resize(now + 1);
        if (!isDone)
            return;
        states.push_back(after);
        if (now == StringTable::MOST_UNDO)
            states.erase(states.begin());
        else
            ++now;
    }

    TableProject real{TWO_LANGUAGES + "ID_B|Push|b|B|\nID_A|Normal||A|aa\nID_C|Normal|c||\n##number|3\n"};
    std::vector<PlainTable> states{TableOfTree(real)};
    size_t now = 0;
};

} // namespace

TEST(StringTable, RandomEditsWithUndoAndRedoMatchAPlainTable)
{
    setenv("RC_PARAMS", "seed=7 max_success=300", /*overwrite=*/0); // the same tables in each run
    EXPECT_TRUE(rc::check([] {
        Walk walk;
        CommandHistory &history = walk.real.table.history;
        for (int step = *rc::gen::inRange(1, 60); step > 0; --step) {
            walk.Step();
            RC_ASSERT(TableOfTree(walk.real) == walk.states[walk.now]);
            RC_ASSERT(history.CanUndo() == (walk.now > 0));
            RC_ASSERT(history.CanRedo() == (walk.now + 1 < walk.states.size()));
        }
    }));
}

TEST(StringTable, UndoesTheLast20Edits)
{
    TableProject project(TWO_LANGUAGES + "ID_A|Normal|||\n##number|1\n");
    for (int i = 1; i <= 25; ++i)
        project.Mod(0, 2, QString::number(i));
    while (project.table.history.CanUndo())
        project.table.history.Undo();
    EXPECT_EQ(project.Dump(), u"ID_A Normal 5  "_s);
}

TEST(StringTable, TrimsUppercasesAndChecksNamesAndReportsTheMessageNumber)
{
    TableProject project(TWO_LANGUAGES + "ID_A|Normal|||\nID_B|Normal|||\n##number|2\n");
    const QString longest(64, u'X');
    for (const auto &[typed, message, name] : {std::tuple(u" id_c "_s, 0, u"ID_C"_s),
                                               {u"ID A"_s, 130, u"ID_C"_s},
                                               {u"1ID"_s, 130, u"ID_C"_s},
                                               {longest + u'X', 130, u"ID_C"_s},
                                               {u"  "_s, 130, u"ID_C"_s},
                                               {u"ID_B"_s, 124, u"ID_C"_s},
                                               {longest, 0, longest}}) {
        project.Mod(0, 0, typed);
        EXPECT_EQ(project.grid.TakeMessage(), message) << qPrintable(typed);
        EXPECT_EQ(project.table.CellText(0, 0), name);
    }
    project.Type(0, u" ID_D"_s);
    EXPECT_EQ(project.grid.TakeMessage(), 130) << "the text that starts a row isn't trimmed";
    project.grid.lastText = u"untouched"_s;
    project.Type(0, QString());
    EXPECT_EQ(project.grid.lastText, u"untouched"_s) << "a default ID is shown with its row, not over it";
    project.table.history.Undo();
    project.Type(3, u"hello"_s);
    project.Mod(2, 4, u"bonjour"_s);
    EXPECT_EQ(project.Dump(), longest + u" Normal   |ID_B Normal   |ID_STRING_0001 Normal  HELLO bonjour"_s);
    EXPECT_EQ(StringEditMessage(124), u"The ID already exists, or it is reserved."_s);
    EXPECT_EQ(StringEditMessage(125), u"Failed to allocate a default ID. Please assign one for it."_s);
    EXPECT_EQ(StringEditMessage(130), u"The ID is invalid."_s);
    EXPECT_EQ(StringEditMessage(170), u"The language does not exist"_s);
    EXPECT_EQ(StringEditMessage(171), u"Unkown error"_s);
}

TEST(StringTable, ADefaultNameHasTheLowestFreeNumber)
{
    TableProject project;
    for (int i = 0; i < 12; ++i)
        project.Type(0, QString());
    EXPECT_EQ(project.table.CellText(9, 0), u"ID_STRING_000A"_s);
    project.Delete({3, 7});
    project.Mod(0, 0, u"ID_OTHER"_s);
    for (const QString &name : {u"ID_STRING_0001"_s, u"ID_STRING_0004"_s, u"ID_STRING_0008"_s, u"ID_STRING_000D"_s}) {
        project.Type(2, u"x"_s);
        EXPECT_EQ(project.table.CellText(project.table.RowCount() - 1, 0), name);
    }
    EXPECT_EQ(project.strings.subfolders.size(), 1U) << "the folder of descriptions was made once";
    EXPECT_EQ(CounterNames(u"%s-%3u%%n"_s).Name(7, u"%d"_s), u"%d-  7%%n"_s);
    EXPECT_EQ(CounterNames(u"fixed %n%s"_s).Name(7, u"x"_s), u"fixed %nx"_s);
    TestModel fixed("[DefaultID]\nstring_id=ID_ONLY\n");
    fixed.AddFolder(fixed.root, KIND_STRINGS);
    FakeGrid grid;
    StringTable table(fixed, grid);
    EXPECT_EQ(table.CreateRow(QString(), 0), 0);
    EXPECT_EQ(table.CreateRow(QString(), 1), EDIT_NO_DEFAULT_ID);
}

TEST(StringTable, RepeatedPastesCopyTheSourcesUntilOneChanges)
{
    TableProject project(TWO_LANGUAGES + "ID_A|Push|d|a|\nID_B|Normal||b|\n##number|2\n");
    project.table.Copy({0, 1, 2});
    project.Paste();
    project.Mod(2, 3, u"other"_s);
    project.Paste();
    EXPECT_EQ(project.Dump(), u"ID_A Push d a |ID_B Normal  b |ID_A_COPY_0001 Push d other |ID_B_COPY_0001 Normal  b |"
                              "ID_A_COPY_0002 Push d a |ID_B_COPY_0002 Normal  b "_s);
    for (const bool deletes : {true, false}) {
        project.table.Copy({1});
        project.Mod(0, 2, u"not in the set"_s);
        EXPECT_EQ(project.table.Copied().size(), 1U);
        if (deletes)
            project.Delete({1});
        else
            project.Mod(1, 1, u"Push"_s);
        EXPECT_TRUE(project.table.Copied().empty());
    }
    project.Mod(0, 0, QString(60, u'N'));
    project.table.Copy({0});
    project.Paste();
    EXPECT_EQ(project.grid.TakeMessage(), 130) << "the name of the copy would be too long";
}

TEST(StringTable, CommandsFindTheirRowsAndLanguagesAfterMovesOrDoNothing)
{
    TableProject project(TWO_LANGUAGES + "ID_A|Normal||a|x\nID_B|Normal||b|y\nID_C|Normal||c|z\n##number|3\n");
    project.Mod(0, 4, u"first"_s);
    project.Mod(1, 3, u"second"_s);
    project.strings.DeleteFolder(project.Language(9));
    project.table.RemoveLanguageColumn(9);
    project.table.history.Undo();
    EXPECT_EQ(project.grid.TakeMessage(), 170);
    ASSERT_EQ(project.table.CreateRow(u"ID_NEW"_s, 0), 0); // moves the rows
    project.table.history.Undo();
    EXPECT_EQ(project.Dump(), u"ID_NEW Normal  |ID_A Normal  x|ID_B Normal  y|ID_C Normal  z"_s);
    project.Delete({1, 3});
    ASSERT_EQ(project.table.DeleteRow(1), 0);
    project.table.history.Undo();
    EXPECT_EQ(project.Dump(), u"ID_NEW Normal  |ID_A Normal  x|ID_C Normal  z"_s);
    ASSERT_EQ(project.table.DeleteRow(2), 0);
    project.table.history.Redo();
    EXPECT_EQ(project.grid.TakeMessage(), 171) << "one of its rows is gone, so none is deleted";
    EXPECT_EQ(project.Dump(), u"ID_NEW Normal  |ID_A Normal  x"_s);

    TableProject other(TWO_LANGUAGES + "ID_A|Normal||a|x\n##number|1\n");
    other.Type(4, u"bonjour"_s);
    other.table.history.Undo();
    other.strings.DeleteFolder(other.Language(9));
    other.table.RemoveLanguageColumn(9);
    other.table.history.Redo();
    EXPECT_EQ(other.Dump(), u"ID_A Normal  x|ID_STRING_0001 Normal  BONJOUR"_s) << "in the language of the edit";
}

TEST(StringTable, AnImportThatFailsMidwayKeepsTheHistoryConsistent)
{
    TableProject project("Number of Language|1\nString ID|Description|English(9)\nID_A||a\n##number|1\n");
    project.Mod(0, 3, u"b"_s);
    for (const auto &[sheet, code] :
         {std::pair("Number of Language,1\nString ID,Description,French\nID_A,d,oui\nID_NEW,,new\n", 0),
          {"Number of Language,2\nString ID,Description,French,Elvish\nID_LATE,,\n", 1608}}) {
        project.folder.Put("in.csv", sheet);
        EXPECT_EQ(ImportSpreadsheet(project, project.folder.Path("in.csv")).code, code);
    }
    project.table.history.Undo();
    project.table.history.Redo();
    project.table.history.Undo();
    project.table.Rebuild();
    EXPECT_EQ(project.Dump(), u"ID_A Normal d a oui|ID_NEW Normal   new"_s);
}

TEST(StringTable, EditsMarkTheDocumentModifiedExceptForKindsAndUnchangedTexts)
{
    CountingObserver watch;
    TableProject project(TWO_LANGUAGES + "ID_A|Normal|d|a|\n##number|1\n");
    project.ids.observer = &watch;
    project.Mod(0, 1, u"Push"_s);
    project.Mod(0, 2, u"d"_s);
    EXPECT_EQ(watch.changed, 0);
    project.Mod(0, 2, u"e"_s);
    project.Mod(0, 0, u"ID_B"_s);
    EXPECT_EQ(watch.changed, 2);
    project.table.history.Undo();
    EXPECT_EQ(watch.changed, 3);
    project.table.Copy({0});
    project.Paste();
    project.table.history.Undo();
    watch.removed = 0;
    project.table.history.Clear();
    EXPECT_EQ(watch.removed, 1) << "so does the end of a copy that has a text of a language";
}
