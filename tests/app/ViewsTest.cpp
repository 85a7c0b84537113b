// SPDX-License-Identifier: MIT
// Tests the decisions of a project's views, and their behaviour with the keyboard and the mouse.
#include "CommandRecord.h"
#include "MenuTable.h"
#include "ProgramStyle.h"
#include "ResourceCounts.h"
#include "StatusPane.h"
#include "StringFileBytes.h"
#include "TestWindow.h"

#include <QClipboard>
#include <QLineEdit>
#include <QListWidget>
#include <QMdiArea>
#include <QScreen>
#include <QStatusBar>
#include <QTest>

namespace
{

QListWidget &Contents(TestWindow &window)
{
    return *window.Child().findChild<QListWidget *>();
}

/// Returns a folder of the open project.
CResFolder &Folder(TestWindow &window, const QString &label)
{
    return *CProjView::FolderOf(window.Row(label));
}

void AddFiles(TestWindow &window, CResFolder &folder, int number)
{
    for (int i = 0; i < number; ++i)
        folder.AddResource(window.Document().CreateDefaultFileRes(folder, u"new.png"_s));
}

} // namespace

TEST(ProjectTree, ClosingAMenuWithoutAnActionHasNoEffect)
{
    OpenWindow window(TestWindow::WITH_LAYOUTS);
    const CResFolder *const selected = window.Document().CreateLayoutRes(1);
    const CResFolder *const other = window.Document().CreateLayoutRes(1);
    ASSERT_TRUE(selected && other);
    const QString selectedName = selected->title, otherName = other->title;
    window.Document().UpdateAllViews(nullptr);
    window.Tree().setCurrentItem(window.Row(selectedName));
    window.Tree().setFocus();
    const auto chooseInMenu = [&](Qt::Key key) {
        QString tip;
        QTimer::singleShot(0, [&] {
            QWidget *const menu = QApplication::activePopupWidget();
            QTest::keyClick(menu, Qt::Key_Up); // moves to the last entry, Delete
            tip = window.Frame().statusBar()->currentMessage();
            QTest::keyClick(menu, key);
        });
        window.Tree().OpenContextMenu(*CProjView::FolderOf(window.Row(otherName)), QPoint(9, 9));
        EXPECT_EQ(tip, TipOf(ACTION_DELETE));
        EXPECT_EQ(window.Frame().statusBar()->currentMessage(), QString());
    };
    window.Answer({QMessageBox::Yes, QMessageBox::Yes});
    chooseInMenu(Qt::Key_Escape);
    window.Frame().RunAction(ACTION_DELETE);
    EXPECT_TRUE(window.Row(otherName) && !window.Row(selectedName)) << "Delete applies to the selection";
    chooseInMenu(Qt::Key_Return);
    EXPECT_FALSE(window.Row(otherName)) << "an action of the menu applies to the menu's folder";
}

TEST(ProjectTree, CopyKeysKeepTheClipboardWhenCopyIsDisabled)
{
    OpenWindow window;
    QApplication::clipboard()->setText(u"kept"_s);
    window.Tree().setCurrentItem(window.Row(u"Images"_s));
    Contents(window).setCurrentRow(0);
    auto *const toolbox = window.Frame().Bars().ToolboxBar().findChild<QListWidget *>();
    window.Frame().Bars().ToolboxBar().show();
    toolbox->addItem(u"Button"_s);
    toolbox->setCurrentRow(0);
    for (QWidget *view : QList<QWidget *>{&window.Tree(), &Contents(window), toolbox}) {
        view->setFocus();
        QTest::keyClick(view, Qt::Key_C, Qt::ControlModifier);
        QTest::keyClick(view, Qt::Key_Insert, Qt::ControlModifier);
        EXPECT_EQ(QApplication::clipboard()->text(), u"kept"_s) << view->metaObject()->className();
    }
}

TEST(TreeLines, AreToTheRightOfTheIconsInTheOtherDirection)
{
    QApplication::setLayoutDirection(Qt::RightToLeft);
    {
        OpenWindow window;
        const QRect strings = window.Tree().visualItemRect(window.Row(u"Strings"_s));
        const QImage picture = window.Tree().viewport()->grab().toImage();
        int marks = 0;
        for (int x = strings.right() + 1; x < picture.width(); ++x)
            marks += picture.pixelColor(x, strings.center().y()) != window.Tree().palette().color(QPalette::Base);
        EXPECT_GE(marks, 5) << "the line from the root to the last folder";
    }
    QApplication::setLayoutDirection(Qt::LayoutDirectionAuto);
}

TEST(ProgramStyle, ButtonsAndGridLinesAreVisibleOnADarkDesktop)
{
    const ProgramStyle style;
    QStyleOption option;
    for (const QColor &window : {QColor(0x2B, 0x2B, 0x2B), QColor(0xEF, 0xEF, 0xEF)}) {
        const bool isDark = window.lightness() < 128;
        option.palette = QPalette(isDark ? Qt::white : Qt::black, window);
        for (const auto which : {QStyle::SP_TitleBarCloseButton, QStyle::SP_TitleBarNormalButton}) {
            const QImage drawn = style.standardIcon(which, &option, nullptr).pixmap(16, 16).toImage();
            int lightness = 0, pixels = 0;
            for (int place = 0; place < drawn.width() * drawn.height(); ++place) {
                const QColor pixel = drawn.pixelColor(place % drawn.width(), place / drawn.width());
                pixels += pixel.alpha() > 128;
                lightness += pixel.alpha() > 128 ? pixel.lightness() : 0;
            }
            ASSERT_GT(pixels, 5);
            EXPECT_EQ(lightness / pixels > 200, isDark) << which;
        }
        const QColor line = QRgb(style.styleHint(QStyle::SH_Table_GridLineColor, &option, nullptr, nullptr));
        EXPECT_GT(std::abs(line.lightness() - option.palette.color(QPalette::Base).lightness()), 40) << isDark;
    }
}

TEST(ProgramStyle, EndsAColumnTitleThatIsTooLongInAnEllipsis)
{
    const ProgramStyle style;
    QImage image(60, 20, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    QStyleOptionHeader option;
    option.rect = image.rect();
    option.textAlignment = Qt::AlignLeft | Qt::AlignVCenter;
    option.text = u"WWWWWWWWWWWWWWWWWWWW"_s;
    style.drawControl(QStyle::CE_HeaderLabel, &option, &painter, nullptr);
    const auto isBlank = [&image](const QRect &part) {
        QImage white(part.size(), image.format());
        white.fill(Qt::white);
        return image.copy(part) == white;
    };
    EXPECT_FALSE(isBlank({0, 0, 8, 10}));
    EXPECT_TRUE(isBlank({52, 0, 8, 10})) << "there are dots, below, and no part of a letter";
}

TEST(MainFrame, PaintsItsWholeTextWhenTheLastProjectIsClosed)
{
    TestWindow window;
    window.Start();
    const auto onScreen = [&window] {
        window.Settle();
        const QWidget *const area = window.Frame().centralWidget();
        const QRect place(area->mapTo(&window.Frame(), QPoint()), area->size());
        return window.Frame().screen()->grabWindow(window.Frame().winId()).copy(place).toImage();
    };
    const QImage before = onScreen();
    ASSERT_FALSE(before.isNull());
    ASSERT_TRUE(window.Frame().Projects().Open(window.Project()));
    window.Child().showNormal();
    window.Child().setGeometry(0, 0, before.width() / 2, before.height());
    EXPECT_NE(onScreen(), before);
    window.Frame().RunAction(ACTION_CLOSE);
    EXPECT_EQ(onScreen(), before);
}

TEST(ResourceCounts, DescribeTheContentsOfAFolder)
{
    TestWindow window(TestWindow::WITH_LAYOUTS);
    window.MakeProject("demo", "<APP><IMAGE id=\"ID_IMAGE\" type=\"Normal\">a.png</IMAGE>"
                               "<STRING>res\\ref_list_demo.txt</STRING></APP>");
    window.folder.Put("demo/res/ref_list_demo.txt",
                      StringFileBytes("Number of Language|2\nString ID|Resource Type|Description|English(0)|French(1)\n"
                                      "IDS_A|Normal|||\nIDS_B|Normal|||\n##number|2\n"));
    window.Start({window.Project()});
    CResFolder &images = Folder(window, u"Images"_s);
    CResFolder &forScreen = *images.FindFolder(KIND_RESO_IMAGES, 1, 1);
    CResFolder &shared = *images.FindFolder(KIND_RESO_IMAGES, -1, 1);
    CResFolder &audio = Folder(window, u"Audio"_s);
    CResFolder &layouts = Folder(window, u"Layouts"_s);
    CResFolder &notInUse = *layouts.FindFolder(KIND_RESO_LAYOUTS | KIND_FLAG_OFF, 2, 1);
    notInUse.AddFolder(window.Document().CreateFolder(KIND_LAYOUT, 2));
    notInUse.subfolders.front()->AddResource(window.Document().CreateFileRes("ID_NOT_IN_USE", 2));
    EXPECT_EQ(HintOf(forScreen) + HintOf(audio), u"No images for 240x320 yetNo audio files yet"_s);
    EXPECT_TRUE(HintOf(*layouts.subfolders[1]).startsWith(u"No layouts for 240x320 yet\n"_s));
    EXPECT_EQ(SummaryOf(CountResources(window.Document().root)), u"3 resources, 2 of them strings in 2 languages"_s);

    AddFiles(window, forScreen, 3);
    AddFiles(window, audio, 1);
    const CResFolder *const layout = window.Document().CreateLayoutRes(1);
    EXPECT_EQ(HintOf(forScreen) + HintOf(shared), u"3 images for 240x3201 image shared by all resolutions"_s);
    EXPECT_EQ(HintOf(Folder(window, u"Strings"_s)) + HintOf(*layout),
              u"2 strings in 2 languagesLayout "_s + layout->title);
    EXPECT_EQ(CountLineOf(images) + CountLineOf(audio) + CountLineOf(layouts), u"4 images1 file1 layout"_s);
    EXPECT_EQ(SummaryOf(CountResources(window.Document().root)), u"8 resources, 2 of them strings in 2 languages"_s);
}

TEST(Contents, ListFoldersAndOpenTheParent)
{
    OpenWindow window(TestWindow::WITH_LAYOUTS);
    QListWidget &list = Contents(window);
    window.Tree().setCurrentItem(window.Row(u"Images"_s));
    list.setFocus();
    EXPECT_EQ(list.item(1)->data(Qt::AccessibleTextRole).toString(), u"Default, 1 image"_s);
    list.setCurrentRow(1);
    Folder(window, u"Default"_s).Clear();
    window.Document().UpdateAllViews(nullptr);
    EXPECT_EQ(list.item(1)->data(Qt::AccessibleTextRole).toString(), u"Default, empty"_s);
    EXPECT_EQ(list.currentRow(), 1) << "a refill keeps the selection";

    window.Tree().setCurrentItem(window.Row(u"Layouts"_s));
    list.setCurrentRow(1);
    QTest::keyClick(&list, Qt::Key_Return);
    EXPECT_EQ(window.Tree().currentItem()->parent(), window.Row(u"Layouts"_s));
    EXPECT_EQ(list.count(), 0);
    EXPECT_TRUE(list.accessibleDescription().startsWith(u"No layouts "_s));
    const QImage withHint = list.viewport()->grab().toImage();
    EXPECT_NE(withHint.copy(0, 0, 1, 1).scaled(withHint.size()), withHint);
    QTest::keyClick(&list, Qt::Key_Backspace);
    EXPECT_EQ(window.Tree().currentItem(), window.Row(u"Layouts"_s));
    EXPECT_EQ(list.currentRow(), 1) << "the folder that was open before";
    EXPECT_EQ(QApplication::focusWidget(), &list);
    for (QWidget *view : QList<QWidget *>{&list, &window.Tree()}) {
        QTest::keyClick(view, Qt::Key_Up, Qt::AltModifier); // the root has no parent
        EXPECT_EQ(window.Selected(), &window.Document().root);
        window.Tree().setCurrentItem(window.Row(u"Audio"_s));
        QTest::keyClick(&window.Tree(), Qt::Key_Backspace);
        EXPECT_EQ(window.Tree().currentItem(), window.Row(u"Files"_s));
    }
}

TEST(Contents, RenameAndDeleteLayoutsAndKeepTheKeysOfALabelEditor)
{
    OpenWindow window(TestWindow::WITH_LAYOUTS);
    CResFolder &screen = *Folder(window, u"Layouts"_s).subfolders[1];
    window.Child().Selected().SelectFolder(&screen);
    ASSERT_TRUE(window.Document().CreateLayoutRes(screen.index));
    window.Document().UpdateAllViews(nullptr);
    for (QAbstractItemView *view : QList<QAbstractItemView *>{&Contents(window), &window.Tree()}) {
        if (view == &window.Tree())
            window.Child().Selected().SelectFolder(screen.subfolders.front().get());
        else
            Contents(window).setCurrentRow(0);
        const CResFolder *const before = window.Selected();
        view->setFocus();
        window.Frame().RunAction(ACTION_RENAME);
        auto *const edit = view->findChild<QLineEdit *>();
        ASSERT_NE(edit, nullptr);
        QTest::keyClick(edit, Qt::Key_Backspace);
        QTest::keyClick(edit, Qt::Key_Up, Qt::AltModifier);
        QTest::keyClick(edit, Qt::Key_Up);
        EXPECT_EQ(window.Selected(), before);
        QTest::keyClick(edit, Qt::Key_Escape);
    }
    for (CResFolder *folder : {&window.Document().root, &screen})
        window.Child().Selected().SelectFolder(folder);
    Contents(window).setFocus();
    EXPECT_FALSE(window.Frame().IsEnabled(ACTION_DELETE)) << "no row is selected";
    EXPECT_TRUE(window.Frame().IsEnabled(ACTION_NEW_LAYOUT)) << "as in the tree";
    Contents(window).setCurrentRow(0);
    window.Answer({QMessageBox::Yes});
    window.Frame().RunAction(ACTION_DELETE);
    EXPECT_TRUE(screen.subfolders.empty());
    EXPECT_EQ(Contents(window).count(), 0);
}

TEST(StatusBar, ShowsTheActiveProjectAndFollowsItsChanges)
{
    constexpr char LONG_NAME[] = "a_project_whose_path_finds_no_room_in_a_window_of_the_smallest_width";
    TestWindow window;
    window.MakeProject(LONG_NAME, "<APP/>");
    window.Start();
    const StatusPane &status = window.Frame().Status();
    EXPECT_EQ(status.Path() + status.Summary(), QString());
    ASSERT_TRUE(window.Frame().Projects().Open(window.Project(LONG_NAME)));
    ASSERT_TRUE(window.Frame().Projects().Open(window.Project()));
    window.Frame().resize(1600, 600);
    window.Settle();
    EXPECT_EQ(status.Path() + u' ' + status.Summary(), window.Project() + u" 1 resource"_s);
    AddFiles(window, Folder(window, u"240x320"_s), 2); // without a notification of any view
    window.Settle();
    EXPECT_EQ(status.Summary(), u"3 resources"_s);
    EXPECT_TRUE(status.isVisible() && status.toolTip().isEmpty());
    window.Frame().findChild<QMdiArea *>()->activateNextSubWindow();
    window.Frame().resize(500, 450);
    window.Settle();
    EXPECT_EQ(status.Path(), window.Project(LONG_NAME));
    EXPECT_EQ(status.toolTip(), window.Project(LONG_NAME) + u"\nno resources"_s) << "a path that doesn't fit";
    for (int i = 0; i < 2; ++i) {
        window.Document().SetModifiedFlag(false);
        window.Frame().RunAction(ACTION_CLOSE);
        window.Settle();
    }
    EXPECT_EQ(status.Path() + status.Summary() + status.toolTip(), QString());
}

TEST(StatusBar, DescribesTheHighlightedMenuEntry)
{
    for (const Menu &menu : MenuBar(/*hasDocument=*/true)) {
        for (const MenuEntry &entry : menu.entries)
            EXPECT_TRUE(entry.id == 0 || TipOf(entry.id).endsWith(u'.')) << entry.text;
    }
    OpenWindow window;
    QMenu *const file = window.Frame().menuBar()->actions().first()->menu();
    file->popup(QPoint(9, 9));
    file->setActiveAction(file->actions()[3]);
    const QStatusBar &bar = *window.Frame().statusBar();
    EXPECT_EQ(bar.currentMessage(), TipOf(ACTION_SAVE));
    EXPECT_FALSE(window.Frame().Status().isVisible());
    {
        const CMainFrame::Busy busy(window.Frame(), IDE_COMMAND_PACK);
        file->setActiveAction(file->actions()[2]);
        file->close();
        EXPECT_TRUE(bar.currentMessage().contains(u"packing"_s)) << qPrintable(bar.currentMessage());
    }
    EXPECT_EQ(bar.currentMessage(), QString());
    EXPECT_TRUE(window.Frame().Status().isVisible());
    for (const QAction *entry : window.Frame().menuBar()->actions()[2]->menu()->actions())
        EXPECT_FALSE(entry->isCheckable() && !entry->icon().isNull() && entry->isIconVisibleInMenu())
            << "the check mark takes the place of the icon";

    window.Frame().Bars().WriteOutput(u"a line\r\n");
    window.Settle();
    QString tip;
    window.OpenMenu(*window.Frame().Bars().Output().viewport(), [&](QWidget &menu) {
        QTest::keyClick(&menu, Qt::Key_Up); // moves to the last entry
        tip = bar.currentMessage();
    });
    EXPECT_EQ(tip.toStdString() + bar.currentMessage().toStdString(), TipOf(ACTION_CLEAR_OUTPUT).toStdString());
}
