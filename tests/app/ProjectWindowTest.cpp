// SPDX-License-Identifier: MIT
#include "FolderKinds.h"
#include "TestWindow.h"

#include <QLineEdit>
#include <QListWidget>
#include <QSignalSpy>
#include <QTest>

namespace
{

/// Returns the labels of a tree, indented by two for each level.
std::string Shown(const QTreeWidgetItem *item, int depth = 0)
{
    std::string all = std::string(size_t(depth) * 2, ' ') + item->text(0).toStdString() + '\n';
    for (int i = 0; i < item->childCount(); ++i)
        all += Shown(item->child(i), depth + 1);
    return all;
}

QListWidget &DefaultView(TestWindow &window)
{
    return *window.Child().findChild<QListWidget *>();
}

std::string RowsOf(const QListWidget &list)
{
    QStringList rows;
    for (int i = 0; i < list.count(); ++i)
        rows.append(list.item(i)->text());
    return rows.join(u' ').toStdString();
}

} // namespace

TEST(ProjectWindow, ShowsTheFoldersInUseAndOpensThem)
{
    TestWindow window;
    window.MakeProject("big", "<APP><RESOLUTION width=\"320\" height=\"240\" class=\"image\"/></APP>");
    window.Start({window.Project("big")});
    EXPECT_EQ(Shown(window.Tree().topLevelItem(0)), "big\n  Files\n    Audio\n    Video\n    Binary\n  Images\n"
                                                    "    240x320\n    320x240\n    Default\n  Strings\n");
    EXPECT_EQ(window.Tree().currentItem(), window.Tree().topLevelItem(0));
    EXPECT_EQ(window.Selected(), &window.Document().root);
    QListWidget &list = DefaultView(window);
    EXPECT_EQ(RowsOf(list), "Files Images Strings");
    for (const QListWidgetItem *row : {list.item(0), list.item(1), list.item(2)})
        EXPECT_FALSE(row->icon().isNull());

    const QPoint images = list.visualItemRect(list.item(1)).center();
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, images);
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, images);
    EXPECT_EQ(window.Tree().currentItem(), window.Row(u"Images"_s));
    EXPECT_EQ(RowsOf(list), "240x320 320x240 Default");
    QTest::keyClick(&window.Tree(), Qt::Key_Down);
    EXPECT_EQ(window.Selected()->title, u"240x320"_s);

    window.Document().UpdateAllViews(nullptr);
    EXPECT_EQ(window.Selected()->title, u"240x320"_s) << "a refill keeps the selection";
    EXPECT_EQ(EntryOf(KIND_COMPONENT | KIND_FLAG_OFF).icon, UiIcon::None);
}

TEST(ProjectWindow, ClearAsksAndMarksTheProjectModifiedUntilItIsSaved)
{
    OpenWindow window;
    EXPECT_EQ(window.Frame().windowTitle(), u"Morvanite - [demo[*]]"_s);
    EXPECT_FALSE(window.Frame().isWindowModified());
    window.Tree().SetContextFolder(CProjView::FolderOf(window.Row(u"Images"_s)));
    window.Answer({QMessageBox::No, QMessageBox::Yes});
    window.Frame().RunAction(ACTION_CLEAR);
    EXPECT_FALSE(window.Document().IsModified());
    EXPECT_TRUE(window.Document().IsIdInUse(u"ID_IMAGE"_s));
    window.Frame().RunAction(ACTION_CLEAR); // applies to the selected folder: that of the context menu was used once
    EXPECT_EQ(window.boxes, QStringList({u"All resources of \"Images\" will be deleted. Continue?"_s,
                                         u"All resources of \"demo\" will be deleted. Continue?"_s}));
    EXPECT_FALSE(window.Document().IsIdInUse(u"ID_IMAGE"_s));
    window.Settle();
    EXPECT_TRUE(window.Frame().isWindowModified());
    window.Frame().RunAction(ACTION_TILE);
    window.Settle();
    EXPECT_EQ(window.Frame().windowTitle(), u"Morvanite - demo[*]"_s);
    EXPECT_TRUE(window.Frame().isWindowModified());
    window.Activate();
    QTest::keyClick(&window.Frame(), Qt::Key_S, Qt::ControlModifier);
    EXPECT_FALSE(window.Document().IsModified());
    window.Settle();
    EXPECT_FALSE(window.Frame().isWindowModified());
    window.Frame().RunAction(ACTION_CLOSE);
    window.Settle();
    EXPECT_EQ(window.Frame().windowTitle(), u"Morvanite"_s);
    EXPECT_FALSE(window.folder.Get("demo/res/demo.res.xml").contains("ID_IMAGE"));
}

TEST(ProjectWindow, ClosingAsksAboutChangesAndKeepsAProjectThatCannotBeSaved)
{
    OpenWindow window;
    window.Document().SetModifiedFlag(true);
    const QSignalSpy ended(qApp, &QGuiApplication::lastWindowClosed);
    window.Answer({QMessageBox::Cancel});
    window.Frame().setGeometry(11, 12, 800, 600);
    EXPECT_FALSE(window.Frame().close());
    EXPECT_TRUE(window.folder.Get("bin/Morvanite.ini").contains("maximized=0\nposition=")) << "stored nevertheless";

    const QByteArray list = window.folder.Get("demo/res/demo.res.xml");
    ASSERT_TRUE(QFile::remove(window.folder.Path("demo/res/demo.res.xml")));
    window.folder.MakeFolder("demo/res/demo.res.xml/in the way");
    window.Answer({QMessageBox::Yes, QMessageBox::Ok});
    EXPECT_FALSE(window.Frame().close()) << "saving failed";
    EXPECT_EQ(window.boxes.last(), u"Failed to save the resources."_s);
    ASSERT_TRUE(QDir(window.folder.Path("demo/res/demo.res.xml")).removeRecursively());
    window.folder.Put("demo/res/demo.res.xml", list);

    window.Answer({QMessageBox::No});
    EXPECT_TRUE(window.Frame().close());
    EXPECT_EQ(window.boxes.last(), u"Save changes to demo?"_s);
    EXPECT_EQ(window.folder.Get("demo/res/demo.res.xml"), list);
    EXPECT_TRUE(window.app->Documents().Documents().empty());
}

TEST(ProjectWindow, AProjectThatDoesNotOpenIsExplainedAndLeavesTheWindowUnchanged)
{
    TestWindow window;
    window.MakeProject("bad", "<APP>");
    window.Start({window.Project()});
    window.Answer({QMessageBox::Ok, QMessageBox::Ok});
    EXPECT_FALSE(window.Frame().Projects().Open(window.Project("bad")));
    EXPECT_FALSE(window.Frame().Projects().Open(window.Project("none")));
    EXPECT_TRUE(window.boxes.first().contains(u"bad.vcproj could not be opened"_s)) << qPrintable(window.boxes.first());
    EXPECT_THAT(window.OutputText(), testing::HasSubstr("Fatal error: invalid resource format"));
    EXPECT_THAT(window.OutputText(),
                testing::HasSubstr("there is no file \"" + window.Project("none").toStdString() + '"'));
    EXPECT_EQ(window.Frame().windowTitle(), u"Morvanite - [demo[*]]"_s);
    ASSERT_TRUE(QFile::link(window.folder.Path("demo"), window.folder.Path("link")));
    for (const QString &path : {window.Project(), window.folder.Path("link/demo.vcproj")})
        EXPECT_TRUE(window.Frame().Projects().Open(path)) << "the open one";
    EXPECT_EQ(window.app->Documents().Documents().size(), 1U);
    window.MakeProject("copy", "<APP/>");
    ASSERT_TRUE(
        QFile::rename(window.folder.Path("copy/res/copy.res.xml"), window.folder.Path("copy/res/demo.res.xml")));
    ASSERT_TRUE(QFile::link(window.Project(), window.folder.Path("copy/demo.vcproj")));
    EXPECT_TRUE(window.Frame().Projects().Open(window.folder.Path("copy/demo.vcproj")));
    EXPECT_EQ(window.app->Documents().Documents().size(), 2U) << "a project is where its folder is";
    window.Frame().RunAction(ACTION_CLOSE);

    window.Frame().RunAction(ACTION_OUTPUT);
    window.Answer({QMessageBox::Ok});
    EXPECT_FALSE(window.Frame().Projects().Open(window.Project("bad")));
    EXPECT_TRUE(window.boxes.last().contains(u"invalid resource format"_s)) << "there is no pane that could show it";
}

TEST(ProjectWindow, AStartWithAProjectThatDoesNotOpenShowsTheReasonAndExits)
{
    TestWindow window;
    window.MakeProject("bad", "<APP>");
    window.app = std::make_unique<CMorvaniteApp>();
    window.Answer({QMessageBox::Ok});
    EXPECT_EQ(window.app->InitInstance({window.Project("bad")}), 1);
    EXPECT_TRUE(window.boxes.value(0).contains(u"could not be opened"_s) &&
                window.boxes.value(0).contains(u"Fatal error: invalid resource format"_s))
        << qPrintable(window.boxes.value(0));
}

TEST(ProjectWindow, OpensDroppedProjectsAndRefusesOtherFiles)
{
    TestWindow window;
    window.MakeProject("other", "<APP/>");
    window.Start();
    window.Answer({QMessageBox::Ok});
    window.DropOn(window.Frame(), window.UrlsOf({window.Project(), window.folder.Path("a.png"), window.Project("other"),
                                                 window.folder.Path("b.png")}));
    EXPECT_TRUE(window.boxes.size() == 1 && window.boxes[0].contains(u"a.png\n"_s) &&
                window.boxes[0].endsWith(u"b.png"_s));
    EXPECT_EQ(window.app->Documents().Documents().size(), 2U);

    QMenu *const menu = window.Frame().menuBar()->actions()[3]->menu();
    for (int round = 0; round < 2; ++round) {
        window.Settle();
        Q_EMIT menu->aboutToShow();
        ASSERT_EQ(menu->actions().size(), 3 + 1 + 2) << "the windows follow the entries";
        const QList<QAction *> windows = menu->actions().last(2);
        EXPECT_EQ(windows[0]->text() + windows[1]->text(), u"&1 demo&2 other"_s);
        EXPECT_TRUE(windows[round == 0]->isChecked() && !windows[round == 1]->isChecked());
        windows[0]->trigger();
    }
    EXPECT_EQ(window.Document().PathName(), window.Project());
    window.Frame().RunAction(ACTION_CLOSE);
    window.Settle();
    EXPECT_TRUE(window.Child().isMaximized()) << "like the closed one";
}

TEST(ProjectWindow, CanBeUsedByTheKeyboard)
{
    OpenWindow window;
    window.Activate();
    window.Tree().setFocus();
    QTest::keyClick(&window.Frame(), Qt::Key_F6);
    EXPECT_EQ(QApplication::focusWidget(), &DefaultView(window));
    QTest::keyClick(&window.Frame(), Qt::Key_F6);
    EXPECT_EQ(QApplication::focusWidget(), &window.Frame().Bars().Output());
    QTest::keyClick(&window.Frame(), Qt::Key_F6);
    EXPECT_EQ(QApplication::focusWidget(), &window.Tree());
    const QPoint strings = window.Tree().visualItemRect(window.Row(u"Strings"_s)).center();
    QTest::mouseClick(window.Tree().viewport(), Qt::RightButton, {}, strings);
    EXPECT_EQ(window.Selected(), &window.Document().root) << "a right click selects nothing";

    QTest::mouseClick(window.Tree().viewport(), Qt::LeftButton, Qt::ControlModifier, strings);
    QTest::mouseClick(window.Tree().viewport(), Qt::LeftButton, Qt::ControlModifier, strings);
    EXPECT_EQ(window.Tree().selectedItems(), QList<QTreeWidgetItem *>({window.Row(u"Strings"_s)}))
        << "nothing deselects a folder";

    window.Frame().Bars().Output().setFocus();
    window.Frame().RunAction(ACTION_SELECT_ALL);
    QTest::keyClick(&window.Frame(), Qt::Key_E, Qt::AltModifier);
    ASSERT_TRUE(QApplication::activePopupWidget());
    EXPECT_THAT(window.MenuEntriesOf(*QApplication::activePopupWidget()), testing::HasSubstr("|&Copy|"))
        << "enabled: it applies to the control that regains the focus";
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
    QTest::keyClick(window.Frame().menuBar(), Qt::Key_Escape);
    EXPECT_EQ(QApplication::focusWidget(), &window.Frame().Bars().Output());
    window.Tree().setFocus();

    const int before = window.Tree().width();
    for (const Qt::LayoutDirection direction : {Qt::LeftToRight, Qt::RightToLeft}) {
        window.Child().setLayoutDirection(direction);
        window.Activate();
        window.Frame().RunAction(ACTION_SPLIT);
        const bool isMirrored = direction == Qt::RightToLeft;
        QTest::keyClick(QApplication::focusWidget(), isMirrored ? Qt::Key_Left : Qt::Key_Right);
        EXPECT_EQ(window.Tree().width(), before + 16);
        QTest::keyClick(QApplication::focusWidget(), isMirrored ? Qt::Key_Right : Qt::Key_Left);
        EXPECT_EQ(window.Tree().width(), before);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Left);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
        EXPECT_EQ(window.Tree().width(), before);
        EXPECT_EQ(window.Child().State().last().value, QString::number(before));
    }
    window.Child().setLayoutDirection(Qt::LeftToRight);
    EXPECT_TRUE(window.Child().toolTip().isEmpty()) << "everything in the window would have it";
    for (const QWidget *widget : window.Frame().findChildren<QWidget *>()) {
        if (widget->isVisible() && widget->focusPolicy() != Qt::NoFocus && widget->inherits("QAbstractScrollArea") &&
            !widget->inherits("QMdiArea")) {
            EXPECT_FALSE(widget->accessibleName().isEmpty()) << widget->metaObject()->className();
        }
    }
}

TEST(ProjectWindow, CreatesRenamesAndDeletesLayoutsInTheTree)
{
    OpenWindow window(TestWindow::WITH_LAYOUTS);
    QTreeWidgetItem *const layouts = window.Row(u"Layouts"_s);
    ASSERT_NE(layouts, nullptr);
    window.Tree().setCurrentItem(layouts->child(0));
    window.Frame().RunAction(ACTION_NEW_LAYOUT);
    QLineEdit *const edit = window.Tree().findChild<QLineEdit *>();
    ASSERT_NE(edit, nullptr);
    edit->selectAll();
    QTest::keyClicks(edit, u"id_start"_s);
    window.Frame().menuBar()->setFocus(Qt::MenuBarFocusReason);
    edit->setFocus(Qt::MenuBarFocusReason);
    EXPECT_TRUE(edit->isVisible()) << "a menu doesn't end the editing";
    window.Frame().menuBar()->setFocus(Qt::MenuBarFocusReason);
    window.Frame().RunAction(ACTION_OUTPUT);
    window.Settle();
    EXPECT_EQ(Shown(layouts->child(0)), "240x320\n  ID_START\n");
    EXPECT_TRUE(window.Document().IsModified());
    window.Document().SetModifiedFlag(false);
    window.Frame().RunAction(ACTION_RENAME);
    window.Tree().findChild<QLineEdit *>()->setText(u"id_second"_s);
    window.Answer({QMessageBox::Cancel});
    EXPECT_FALSE(window.Frame().close()) << "the typed text counts";
    window.Activate();
    window.Frame().RunAction(ACTION_RENAME);
    QLineEdit *const again = window.Tree().findChild<QLineEdit *>();
    ASSERT_NE(again, nullptr);
    again->setText(u"id_image"_s);
    window.Answer({QMessageBox::Ok, QMessageBox::Ok});
    QTest::keyClick(again, Qt::Key_Return);
    window.Settle();
    EXPECT_EQ(window.boxes.size(), 2);
    window.Activate();
    EXPECT_EQ(QApplication::focusWidget(), &window.Tree()) << "the label is left";
    window.Frame().RunAction(ACTION_RENAME);
    window.Tree().findChild<QLineEdit *>()->setText(u"id_image"_s);
    EXPECT_FALSE(window.Frame().close()) << "the program doesn't end when the user must correct a text";
    window.Settle();
    EXPECT_EQ(Shown(layouts->child(0)), "240x320\n  ID_SECOND\n");
    window.Answer({QMessageBox::Ok});
    window.Tree().setCurrentItem(layouts->child(0));
    QListWidget &list = DefaultView(window);
    list.item(0)->setText(u"no good"_s);
    window.Settle();
    list.item(0)->setText(u"  "_s);
    EXPECT_EQ(RowsOf(list), "ID_SECOND") << "a blank name is dropped";
    list.item(0)->setText(u" id_start "_s);
    EXPECT_EQ(RowsOf(list), "ID_START");
    window.Frame().RunAction(ACTION_SAVE);
    window.Tree().setCurrentItem(layouts->child(0)->child(0));
    EXPECT_TRUE(window.folder.Get("demo/res/layout_demo_240x320.xml").contains("ID_START"));

    window.Answer({QMessageBox::No, QMessageBox::Yes});
    window.Tree().setFocus();
    for (const int left : {1, 0}) {
        window.Activate();
        QTest::keyClick(&window.Tree(), Qt::Key_Delete);
        window.Settle();
        EXPECT_EQ(layouts->child(0)->childCount(), left);
    }
    EXPECT_EQ(window.boxes.size(), 6);
    EXPECT_EQ(window.boxes[3], u"The ID is invalid."_s);
    EXPECT_FALSE(window.Document().IsIdInUse(u"ID_START"_s));
}
