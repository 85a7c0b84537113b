// SPDX-License-Identifier: MIT
// Tests that no invalid text or ID gets into a string table, for all ways of input.
#include "FindBar.h"
#include "Spreadsheet.h"
#include "StringWindow.h"

#include <QClipboard>
#include <QLineEdit>

// Rows by ID: ID_A2, ID_A10, ID_C, the new-row line.

namespace
{

struct InputWindow : StringWindow
{
    /// Answers all boxes with OK.
    InputWindow() { Answer(QList<QMessageBox::StandardButton>(500, QMessageBox::Ok)); }

    void Paste(ActionId id, const QString &text) const
    {
        WakeUp();
        QGuiApplication::clipboard()->setText(text);
        Frame().RunAction(id);
    }
    /// Checks that the change is one step, leaves each text on one line, and survives a save.
    void CheckStep(const QStringList &before) const
    {
        const QStringList after = TreeRows();
        Frame().RunAction(ACTION_UNDO);
        EXPECT_EQ(TreeRows(), before);
        Frame().RunAction(ACTION_REDO);
        EXPECT_EQ(TreeRows(), after);
        SaveAndReload();
    }
};

} // namespace

TEST(StringInput, TurnsAnyTextIntoOneLineOrRefusesIt)
{
    const QString texts[] = {u"a\r\nb\nc\rd"_s,
                             u"\n"_s,
                             u"a\tb"_s,
                             u"\"a\nb\"\"\tc\""_s,
                             u"a\u2028b\u0085c\vd"_s,
                             QString(QChar(0)) + u"a"_s + QChar(0),
                             QString(QChar(0xD83D)),
                             u"a"_s + QChar(0xDE00) + QChar(0xD83D) + u"b"_s,
                             u"\uFEFF\uFFFF"_s,
                             u"##number"_s,
                             QString(100'000, u'x'),
                             QString(50'000, u'\n') + QString(50'000, u'\t')};
    for (const QString &text : texts) {
        SCOPED_TRACE(text.left(20).toStdString());
        InputWindow window;
        QStringList before = window.TreeRows();
        window.Edit(1, 3);
        window.Paste(ACTION_PASTE, text);
        window.Key(Qt::Key_Return);
        window.CheckStep(before);

        window.Frame().RunAction(ACTION_REPLACE);
        window.Paste(ACTION_PASTE, text);
        TestWindow::Named<QLineEdit>(window.View(), u"Find"_s).setText(u"D"_s);
        TestWindow::Named<QLineEdit>(window.View(), u"Replace with"_s).setFocus();
        window.Paste(ACTION_PASTE, text);
        before = window.TreeRows();
        window.Key(Qt::Key_Return);
        EXPECT_NE(window.TreeRows(), before);
        window.Grid().setFocus();
        window.CheckStep(before);
        TestWindow::Named<QLineEdit>(window.View(), u"Find"_s).setFocus();
        window.Key(Qt::Key_Escape);

        window.Grid().SelectAlone(2, 2);
        window.Grid().setFocus();
        before = window.TreeRows();
        window.Paste(ACTION_PASTE_CELLS, text);
        window.CheckStep(before);
    }
}

TEST(StringInput, RefusesInvalidIds)
{
    InputWindow window;
    const QStringList before = window.TreeRows();
    const QString ids[] = {
        u" "_s,    u"A B"_s,       u"ID_"_s + QChar(0) + u"A"_s, u"ID_C"_s, u"id_c "_s, u"<New>"_s, u"ID\u200BA"_s,
        u"A\nB"_s, u"ID_\xDC00"_s, QString(65, u'I') + u"-"_s};
    for (const QString &id : ids) {
        SCOPED_TRACE(id.toStdString());
        for (const int row : {0, 3}) {
            if (row == 3 && (id.trimmed() != id || id == u"<New>"_s))
                continue; // the text of the new row isn't trimmed, and nothing has changed
            window.boxes.clear();
            window.Edit(row, 0);
            window.Paste(ACTION_PASTE, id.right(64));
            window.Key(Qt::Key_Return);
            ASSERT_TRUE(window.WaitFor([&] { return window.boxes.size() == 1 && window.Editor().IsOpen(); })) << row;
            EXPECT_TRUE(window.boxes[0].startsWith(u"The ID "_s));
            window.Key(Qt::Key_Escape);
            EXPECT_EQ(window.TreeRows(), before);
        }
        if (id.trimmed().toUpper() == u"ID_C"_s)
            continue; // the pasted cells belong to that row
        window.boxes.clear();
        window.Paste(ACTION_PASTE_CELLS, u"Resource Type\tID\tEnglish\nPush\t\""_s + id + u"\"\t"_s);
        EXPECT_TRUE(window.WaitFor([&] { return window.boxes.size() == 1; }));
        EXPECT_TRUE(window.boxes.value(0).startsWith(u"Nothing on the clipboard can be pasted."_s));
        EXPECT_EQ(window.TreeRows(), before);
    }
    EXPECT_FALSE(window.Document().IsModified());
}

TEST(StringInput, AcceptsADropCompletelyOrNotAtAll)
{
    InputWindow window;
    const QString book = window.folder.Path("good.xls");
    window.Put(0, 4, u"Deux"_s);
    const QStringList after = window.TreeRows();
    ASSERT_EQ(ExportSpreadsheet(window.Document(), book).code, 0);
    window.Frame().RunAction(ACTION_UNDO);
    const QStringList before = window.TreeRows();
    const QByteArray good = window.folder.Get("good.xls");
    for (qsizetype size = 0; size < good.size(); size += 1 + good.size() / 40) {
        window.folder.Put("cut.xls", good.left(size));
        window.Drop({window.folder.Path("cut.xls")});
        ASSERT_TRUE(window.WaitFor([&] { return window.boxes.size() == 1 || window.TreeRows() == after; })) << size;
        if (window.boxes.isEmpty())
            break; // only the padding after the table is cut off
        EXPECT_TRUE(window.boxes.takeFirst().startsWith(u"Failed to import \"cut.xls\"."_s));
        EXPECT_EQ(window.TreeRows(), before) << size;
    }
    QStringList many{window.folder.Path("demo"), window.folder.Path("gone.xls"),
                     window.folder.Path("demo/demo.vcproj")};
    for (int n = 0; n < 97; ++n) {
        window.folder.Put("copy" + QByteArray::number(n) + ".xls", good);
        many << window.folder.Path("copy" + QByteArray::number(n) + ".xls");
    }
    window.Edit(0, 3);
    window.Type(u"typed"_s);
    window.Drop(many);
    ASSERT_TRUE(window.WaitFor([&] { return window.boxes.size() == 2; }));
    EXPECT_TRUE(window.boxes[0].startsWith(u"Failed to import \"gone.xls\"."_s)) << qPrintable(window.boxes[0]);
    EXPECT_EQ(window.boxes[1], u"\"demo.vcproj\": Inappropriate file type."_s);
    EXPECT_EQ(window.Shown(0, 3) + window.Shown(0, 4), "typedDeux");
    EXPECT_FALSE(window.Table().history.CanUndo()) << "the rebuild forgets the steps";
    window.SaveAndReload();
    window.boxes.clear();
    window.Tree().setFocus(); // as after a click on Strings
    window.Drop({window.folder.Path("demo")});
    EXPECT_EQ(window.boxes, QStringList()) << "a folder is skipped silently";
}
