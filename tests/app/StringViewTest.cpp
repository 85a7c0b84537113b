// SPDX-License-Identifier: MIT
#include "StringWindow.h"

#include <QClipboard>
#include <QScrollBar>

// Columns: 0 ID, 1 kind, 2 description, 3 English, 4 French. Rows by ID: ID_A2, ID_A10, ID_C, the new-row line.

TEST(StringView, EditsCellsByTheKeyboard)
{
    struct Case
    {
        const char *what;
        int row, col;
        const char *typed; // replaces the whole text; null: types nothing
        Qt::Key key;
        Qt::KeyboardModifiers modifiers;
        const char *edited; // the cell with the editor afterwards
        const char *text;   // the text of the cell at row, col afterwards
        bool undoable;
    };
    const Case cases[] = {
        {"enter commits", 0, 3, "Deux", Qt::Key_Return, {}, "", "Deux", true},
        {"escape drops", 0, 3, "Deux", Qt::Key_Escape, {}, "", "Two", false},
        {"tab goes on", 0, 3, "x", Qt::Key_Tab, {}, "0,4", "x", true},
        {"tab without a change makes no step", 0, 3, nullptr, Qt::Key_Tab, {}, "0,4", "Two", false},
        {"tab at the end of a row", 0, 4, "y", Qt::Key_Tab, {}, "1,0", "y", true},
        {"tab in the last cell of all", 3, 4, "z", Qt::Key_Tab, {}, "3,4", "", false},
        {"back over the beginning of a row", 1, 0, nullptr, Qt::Key_Backtab, Qt::ShiftModifier, "0,4", "ID_A10", false},
        {"back in the first cell", 0, 0, nullptr, Qt::Key_Backtab, Qt::ShiftModifier, "0,0", "ID_A2", false},
        {"up", 1, 3, "x", Qt::Key_Up, {}, "0,3", "x", true},
        {"up in the first row", 0, 3, "x", Qt::Key_Up, {}, "0,3", "Two", false},
        {"down", 1, 3, nullptr, Qt::Key_Down, {}, "2,3", "Ten", false},
        {"a key of the editor", 1, 3, nullptr, Qt::Key_PageDown, {}, "1,3", "Ten", false},
        {"another key of the editor", 1, 3, nullptr, Qt::Key_Home, Qt::ControlModifier, "1,3", "Ten", false},
        {"a new row from its first cell", 3, 0, "id_new", Qt::Key_Tab, {}, "3,1", "ID_NEW", true},
        {"a new row from a language, in upper case", 3, 4, "hello", Qt::Key_Return, {}, "", "HELLO", true},
    };
    for (const Case &each : cases) {
        SCOPED_TRACE(each.what);
        StringWindow window;
        window.Edit(each.row, each.col);
        ASSERT_EQ(window.Edited(), std::to_string(each.row) + ',' + std::to_string(each.col));
        if (each.typed)
            window.Type(QString::fromLatin1(each.typed));
        window.Key(each.key, each.modifiers);
        EXPECT_EQ(window.Edited(), each.edited);
        const int selected = window.Editor().isVisible() ? window.Editor().Cell().row() : each.row;
        EXPECT_EQ(window.Grid().SelectedRows(), std::vector<int>{selected});
        EXPECT_EQ(window.Shown(each.row, each.col), each.text);
        EXPECT_EQ(window.Table().history.CanUndo(), each.undoable);
        EXPECT_EQ(window.Document().IsModified(), each.undoable);
    }
}

TEST(StringView, TabSkipsHiddenColumns)
{
    StringWindow window;
    window.Grid().horizontalHeader()->resizeSection(4, 0);
    window.Grid().horizontalHeader()->resizeSection(0, 0);
    window.Settle();
    window.Edit(0, 3);
    window.Key(Qt::Key_Tab);
    EXPECT_EQ(window.Edited(), "1,1");
    window.Key(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(window.Edited(), "0,3");
    EXPECT_EQ(window.Grid().SelectedRows(), std::vector<int>{0}) << "Shift must not extend the selection";
}

TEST(StringView, EnterSelectsAndEditsTheFocusedRow)
{
    StringWindow window;
    window.Put(0, 3, u"Deux"_s);
    window.Grid().SelectAlone(2, 0);
    window.Frame().RunAction(ACTION_UNDO); // moves the focus but not the selection
    window.Key(Qt::Key_Return);
    EXPECT_EQ(window.Edited(), "0,3");
    EXPECT_EQ(window.Grid().SelectedRows(), std::vector<int>{0});
}

TEST(StringView, MenusDoNotEndTheEditing)
{
    StringWindow window;
    window.Edit(0, 3);
    window.Type(u"abc"_s);
    for (const Qt::FocusReason reason : {Qt::PopupFocusReason, Qt::MenuBarFocusReason}) {
        QFocusEvent out(QEvent::FocusOut, reason);
        QApplication::sendEvent(&window.Editor(), &out);
        EXPECT_EQ(window.Edited(), "0,3");
    }
    window.Frame().RunAction(ACTION_UNDO); // undoes the choice in the box
    EXPECT_EQ(window.Edited(), "0,3");
    EXPECT_EQ(window.Shown(0, 3), "Two");
    window.Frame().RunAction(ACTION_SELECT_ALL);
    EXPECT_EQ(window.Grid().SelectedRows().size(), 1U);
    window.Frame().RunAction(ACTION_REDO); // has no such rule: it applies the typed text first
    EXPECT_EQ(window.Edited(), "");
}

TEST(StringView, KeepsLongTextsCompleteAndOnOneLine)
{
    const QByteArray longText(600, 'x');
    StringWindow window(QByteArray("Number of Language|1\nString ID|Resource Type|Description|English(9)\n"
                                   "ID_A|Normal|") +
                        longText + "|a\n##number|1\n");
    window.Edit(0, 2);
    window.Key(Qt::Key_End);
    window.Type(u"y"_s);
    window.Key(Qt::Key_Return);
    EXPECT_EQ(window.Table().CellText(0, 2), QString::fromLatin1(longText)) << "no room, but nothing is lost";
    EXPECT_FALSE(window.Document().IsModified());

    window.Edit(0, 3);
    QGuiApplication::clipboard()->setText(u"one\r\ntwo\nthree\u2028four\tfive"_s);
    window.Frame().RunAction(ACTION_PASTE);
    window.Key(Qt::Key_Return);
    EXPECT_EQ(window.Table().CellText(0, 3), u"one two three fourfive"_s);

    window.Edit(0, 3);
    const QString emoji = u"\U0001F600"_s;
    QGuiApplication::clipboard()->setText(QString(511, u'e') + emoji);
    window.Frame().RunAction(ACTION_PASTE);
    window.Key(Qt::Key_Return);
    EXPECT_EQ(window.Table().CellText(0, 3), QString(511, u'e')) << "half a character isn't accepted";

    window.Edit(0, 0);
    window.Type(QString(70, u'i'));
    EXPECT_EQ(window.Editor().text().size(), 64);
    window.Key(Qt::Key_Escape);
}

TEST(StringView, ExplainsOnceWhyAnIdIsRefusedAndReturnsToTheCell)
{
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Tab, Qt::Key_Down}) {
        StringWindow window;
        window.Answer({QMessageBox::Ok, QMessageBox::Ok});
        window.Edit(0, 0);
        window.Type(u"id c"_s);
        window.Key(key);
        ASSERT_TRUE(window.WaitFor([&] { return window.boxes.size() == 1 && window.Edited() == "0,0"; }));
        EXPECT_EQ(window.Grid().SelectedRows(), std::vector<int>{0});
        window.Activate();
        window.Type(u"id_c"_s);
        window.Frame().RunAction(ACTION_SAVE);
        ASSERT_TRUE(window.WaitFor([&] { return window.boxes.size() == 2 && window.Edited() == "0,0"; }));
        EXPECT_EQ(window.boxes, (QStringList{u"The ID is invalid."_s, u"The ID already exists, or it is reserved."_s}));
        EXPECT_FALSE(window.Document().IsModified()) << "a save with a refused text waits for the user";
        window.Activate();
        window.Key(Qt::Key_Escape);
    }
}

TEST(StringView, ChoosesTheKindInABox)
{
    StringWindow window;
    const auto click = [&](int row, int col) { window.ClickCell(window.Grid(), row, col); };
    click(0, 1);
    ASSERT_TRUE(window.TypeBox().isVisible());
    EXPECT_EQ(window.TypeBox().currentText(), u"Push"_s);
    QWheelEvent wheel({5, 5}, window.TypeBox().mapToGlobal(QPointF(5, 5)), {}, {0, -120}, {}, {}, Qt::NoScrollPhase,
                      false);
    QApplication::sendEvent(&window.TypeBox(), &wheel);
    EXPECT_EQ(window.TypeBox().currentText(), u"Push"_s);
    window.Key(Qt::Key_Escape);
    EXPECT_FALSE(window.TypeBox().isVisible());
    EXPECT_FALSE(window.Table().history.CanUndo());

    click(0, 1);
    window.Key(Qt::Key_Up);
    EXPECT_FALSE(window.TypeBox().isVisible());
    EXPECT_EQ(window.Shown(0, 1), "Normal");
    EXPECT_FALSE(window.Document().IsModified()) << "a kind alone doesn't mark the project as modified";
    click(2, 1);
    click(2, 3); // a click elsewhere; the command is executed nevertheless
    EXPECT_FALSE(window.TypeBox().isVisible());
    window.Table().history.Undo();
    window.Table().history.Undo();
    EXPECT_FALSE(window.Table().history.CanUndo());
    EXPECT_EQ(window.Shown(0, 1), "Push");

    click(3, 1);
    EXPECT_FALSE(window.TypeBox().isVisible()) << "the new-row line has no kind";
    window.Grid().SelectAlone(1, 3);
    window.Grid().horizontalHeader()->resizeSection(0, 2000);
    window.Settle();
    window.Grid().horizontalScrollBar()->setValue(0);
    QTest::keyClick(&window.Grid(), Qt::Key_Down, Qt::AltModifier);
    EXPECT_TRUE(window.TypeBox().isVisible());
    window.Frame().RunAction(ACTION_REDO);
    EXPECT_FALSE(window.TypeBox().isVisible());
    EXPECT_EQ(window.Shown(0, 1), "Normal") << "a box without a choice must not clear the redo steps";
}
