// SPDX-License-Identifier: MIT
// Tests that a project can be closed or changed while the user is editing its strings.
#include "CListFltrDlg.h"
#include "FindBar.h"
#include "IdeCommands.h"
#include "StringWindow.h"

#include <QScrollBar>

// Rows by ID: ID_A2, ID_A10, ID_C, the new-row line.

namespace
{

using Window = StringWindow;

/// A state in the middle of a user action.
struct Middle
{
    const char *what;
    void (*begin)(Window &);
    bool hasText; // it was typed, but isn't in the table yet
};
const Middle MIDDLES[] = {
    {"editor",
     [](Window &window) {
         window.Edit(1, 3);
         window.Type(u"typed"_s);
     },
     true},
    {"type box",
     [](Window &window) {
         window.Grid().SelectAlone(1, 3);
         QTest::keyClick(&window.Grid(), Qt::Key_Down, Qt::AltModifier);
         ASSERT_TRUE(window.TypeBox().IsOpen());
     },
     false},
    {"find bar",
     [](Window &window) {
         window.Frame().RunAction(ACTION_FIND_BAR);
         window.Type(u"dix"_s);
         ASSERT_EQ(window.Grid().model()->rowCount(), 2);
     },
     false},
};

std::string SavedFile(const Window &window)
{
    const QByteArray bytes = window.folder.Get("demo/res/ref_list_demo.txt");
    return QString(reinterpret_cast<const QChar *>(bytes.constData()), bytes.size() / 2).toStdString();
}

} // namespace

TEST(StringEnds, WhateverEndsTheEditingAppliesTypedText)
{
    const struct
    {
        const char *what;
        void (*end)(Window &);
        bool saves = false;
    } ends[] = {
        {"click elsewhere", [](Window &window) { window.ClickCell(window.Grid(), 2, 3); }},
        {"column resized", [](Window &window) { window.Grid().horizontalHeader()->resizeSection(0, 90); }},
        {"view resized", [](Window &window) { window.Frame().resize(900, 500); }},
        {"scroll", [](Window &window) { window.Grid().horizontalScrollBar()->setValue(5); }},
        {"focus to the tree", [](Window &window) { window.Tree().setFocus(); }},
        {"save", [](Window &window) { window.Frame().RunAction(ACTION_SAVE); }, true},
        {"sort", [](Window &window) { window.Grid().SortBy(2); }},
        {"an update of all views", [](Window &window) { window.Document().UpdateAllViews(nullptr); }},
        {"an IDE saves", [](Window &window) { (void)Send(IDE_COMMAND_SAVE, RecordOf(window.Project())); }, true},
        {"an IDE loads", [](Window &window) { (void)Send(IDE_COMMAND_LOAD, RecordOf(window.Project())); }},
        {"an IDE packs", [](Window &window) { (void)Send(IDE_COMMAND_PACK, RecordOf(window.Project())); }},
    };
    for (const Middle &middle : MIDDLES) {
        for (const auto &[what, end, saves] : ends) {
            SCOPED_TRACE(std::string(middle.what) + ", " + what);
            Window window;
            window.Grid().horizontalHeader()->resizeSection(2, 900);
            window.Settle();
            middle.begin(window);
            end(window);
            window.Settle();
            EXPECT_EQ(window.Edited(), "");
            const int row = window.Table().RowOf("ID_A10", 1);
            EXPECT_EQ(window.Table().CellText(row, 3), middle.hasText ? u"typed"_s : u"Ten"_s);
            if (saves) {
                EXPECT_EQ(SavedFile(window).find("typed") != std::string::npos, middle.hasText);
            }
        }
    }
}

TEST(StringEnds, ClosingAppliesTypedTextAndAsks)
{
    for (const Middle &middle : MIDDLES) {
        for (const bool isMain : {true, false}) {
            SCOPED_TRACE(std::string(middle.what) + (isMain ? ", main window" : ", project"));
            Window window;
            middle.begin(window);
            window.Answer({QMessageBox::Yes});
            EXPECT_TRUE(isMain ? window.Frame().close() : window.Child().close());
            window.Settle();
            EXPECT_EQ(window.boxes, middle.hasText ? QStringList(u"Save changes to demo?"_s) : QStringList());
            EXPECT_EQ(SavedFile(window).find("typed") != std::string::npos, middle.hasText);
        }
    }
}

/// A project whose table refuses a text stays open.
TEST(StringEnds, ClosingReportsARefusedText)
{
    for (const bool isMain : {true, false}) {
        SCOPED_TRACE(isMain);
        Window window;
        window.Edit(1, 0);
        window.Type(u"1 bad"_s);
        window.Answer({QMessageBox::Ok});
        EXPECT_FALSE(isMain ? window.Frame().close() : window.Child().close());
        ASSERT_TRUE(window.WaitFor([&] { return window.boxes.size() == 1 && window.Edited() == "1,0"; }));
        window.Key(Qt::Key_Escape);
        EXPECT_FALSE(window.Document().IsModified());
    }
}

/// Destroys the view without closing it first.
TEST(StringEnds, TheViewCanBeDestroyedAtAnyTime)
{
    for (const Middle &middle : MIDDLES) {
        SCOPED_TRACE(middle.what);
        Window window;
        middle.begin(window);
        window.app.reset();
    }
}

TEST(StringEnds, CommandsAndClosingWaitForADialogOrABox)
{
    const std::pair<const char *, void (*)(Window &)> dialogs[] = {
        {"languages", [](Window &window) { window.Frame().RunAction(ACTION_LANGUAGE); }},
        {"question",
         [](Window &window) {
             window.Grid().SelectAlone(0, 0);
             window.Frame().RunAction(ACTION_DELETE);
         }},
        {"message", [](Window &window) { window.Put(0, 0, u"1 bad"_s); }},
    };
    for (const auto &[what, open] : dialogs) {
        for (const quint32 command : {IDE_COMMAND_SAVE, IDE_COMMAND_LOAD, IDE_COMMAND_PACK}) {
            SCOPED_TRACE(std::string(what) + std::to_string(command));
            Window window;
            std::atomic<bool> isOver = false;
            std::thread ide;
            WhenOpen<QDialog>(window, [&](QDialog &dialog) {
                ide = std::thread([&] {
                    std::string error;
                    (void)IdeCommandClient::Run(command, RecordOf(window.Project()), {}, error);
                    isOver = true;
                });
                TestWindow::Settle();
                EXPECT_FALSE(window.Frame().close());
                EXPECT_FALSE(window.Child().close());
                EXPECT_FALSE(isOver);
                dialog.close();
            });
            open(window);
            EXPECT_TRUE(TestWindow::WaitFor([&] { return isOver.load(); }));
            ide.join();
            EXPECT_EQ(window.Table().RowCount(), 3);
        }
    }
}

/// The tree changes while an editor or dialog is open.
TEST(StringEnds, ReloadingAndClearingEndTheEditing)
{
    const std::pair<const char *, void (*)(Window &)> ends[] = {
        {"reload",
         [](Window &window) {
             window.folder.Put("demo/res/ref_list_demo.txt", StringFileBytes(Window::THREE_ROWS + "\n"));
             EXPECT_EQ(window.Document().TakeInChanges(), CResDoc::Outside::TakenIn);
         }},
        {"clear", [](Window &window) { window.Document().ClearByKind(*window.Strings()); }},
        {"language",
         [](Window &window) {
             CResFolder *const language = window.Strings()->FindFolder(KIND_LANGUAGE, 9, 1);
             EXPECT_TRUE(window.Document().DeleteFolder(*language));
         }},
    };
    for (const Middle &middle : MIDDLES) {
        for (const auto &[what, end] : ends) {
            SCOPED_TRACE(std::string(middle.what) + ", " + what);
            Window window;
            middle.begin(window);
            end(window);
            window.Settle();
            EXPECT_FALSE(window.Editor().isVisible());
            window.Document().UpdateAllViews(nullptr);
            EXPECT_EQ(window.Grid().model()->columnCount(), int(window.Strings()->subfolders.size()) + 2);
        }
    }
}
