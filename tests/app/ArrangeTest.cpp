// The windows of projects: how they are arranged, minimised and closed, and what is there afterwards.
#include "Cascade.h"
#include "TestWindow.h"

#include <QMdiArea>
#include <QMdiSubWindow>
#include <QStyle>
#include <QTest>
#include <QToolBar>

TEST(Cascade, LeavesATitleBarOfEachWindowInSight)
{
    constexpr int TITLE = 28;
    for (const QSize &area : {QSize(800, 600), QSize(300, 200)}) {
        for (const int count : {1, 4, 17, 60}) {
            const QList<QRect> places = CascadePlaces(count, area, TITLE, QSize(250, 150));
            ASSERT_EQ(places.size(), count);
            for (int i = 0; i < count; ++i) {
                QRegion title(QRect(places[i].topLeft(), QSize(places[i].width(), TITLE)));
                for (int above = i + 1; above < count; ++above)
                    title -= places[above];
                EXPECT_GE(title.boundingRect().width(), 60) << count << ' ' << i;
                EXPECT_LE(places[i].top() + TITLE, area.height());
                if (area.width() == 800 && count < 60) {
                    EXPECT_TRUE(QRect(QPoint(), area).contains(places[i])) << count << ' ' << i;
                }
            }
        }
    }
}

TEST(Arrange, CascadeLeavesTheTitleBarsOfAllProjectsInSight)
{
    TestWindow window;
    QStringList projects;
    for (const char name : QByteArray("abcdefghijkl")) {
        window.MakeProject(QByteArray(1, name), "<APP/>");
        projects.append(window.Project(QByteArray(1, name)));
    }
    window.Start(projects);
    window.Frame().resize(700, 600);
    window.Frame().RunCommand(CMD_CASCADE);
    window.Settle();
    auto *const area = window.Frame().findChild<QMdiArea *>();
    const QList<QMdiSubWindow *> windows = area->subWindowList(QMdiArea::StackingOrder);
    ASSERT_EQ(windows.size(), 12);
    EXPECT_EQ(windows.last(), &window.Child());
    const int height = window.Frame().style()->pixelMetric(QStyle::PM_TitleBarHeight);
    for (qsizetype i = 0; i < windows.size(); ++i) {
        const QRect title(windows[i]->pos(), QSize(60, height));
        QRegion covered = QRegion(title) - area->viewport()->rect();
        for (qsizetype above = i + 1; above < windows.size(); ++above)
            covered += windows[above]->geometry() & title;
        EXPECT_TRUE(covered.isEmpty()) << i;
    }
}

TEST(Arrange, MenusAndKeysAreThereAfterEachChangeOfTheWindows)
{
    TestWindow window;
    window.MakeProject("other", "<APP/>");
    window.MakeProject("third", "<APP/>");
    window.Start({window.Project(), window.Project("other"), window.Project("third")});
    auto *const area = window.Frame().findChild<QMdiArea *>();
    QMdiSubWindow *const child = &window.Child();
    const std::function<void()> changes[] = {
        [&] { window.Frame().RunCommand(CMD_CASCADE); },
        [&] { window.Frame().RunCommand(CMD_TILE); },
        [&] { child->showMinimized(); },
        [&] { window.Frame().RunCommand(CMD_ARRANGE_ICONS); },
        [&] { child->showMaximized(); },
        [&] { child->showNormal(); },
        [&] {
            window.Frame().showMinimized();
            window.Frame().showNormal();
        },
        [&] { window.Frame().showMaximized(); },
        [&] { area->setActiveSubWindow(nullptr); }, // as when the window is back at once
    };
    for (const auto &change : changes) {
        change();
        window.Settle();
        window.Frame().activateWindow();
        window.Settle();
        EXPECT_EQ(window.Frame().ActiveChild(), child);
        EXPECT_EQ(window.Frame().menuBar()->actions().size(), 6);
        window.Document().SetModifiedFlag(true);
        QTest::keyClick(&window.Frame(), Qt::Key_S, Qt::ControlModifier);
        EXPECT_FALSE(window.Document().IsModified());
    }
}

TEST(Arrange, TheFocusStaysWhereItIs)
{
    TestWindow window;
    window.Start({window.Project()});
    for (const int command : {CMD_TILE, CMD_CASCADE}) {
        window.Child().showMaximized();
        window.Tree().setFocus();
        window.Settle();
        window.Frame().RunCommand(command);
        window.Settle();
        EXPECT_EQ(QApplication::focusWidget(), &window.Tree());
    }
}

TEST(Arrange, CtrlF4ClosesTheActiveProjectAndAsks)
{
    TestWindow window;
    window.MakeProject("other", "<APP/>");
    window.Start({window.Project(), window.Project("other")});
    for (const bool isMaximised : {true, false}) {
        if (!isMaximised)
            window.Frame().RunCommand(CMD_TILE);
        window.Document().SetModifiedFlag(true);
        window.Answer({QMessageBox::Cancel, QMessageBox::No});
        for (const bool isOpen : {true, false}) {
            const CChildFrame *const child = &window.Child();
            window.Frame().activateWindow();
            window.Tree().setFocus();
            window.Settle();
            QTest::keyClick(&window.Tree(), Qt::Key_F4, Qt::ControlModifier);
            window.Settle();
            EXPECT_EQ(window.Frame().ActiveChild() == child, isOpen) << isMaximised;
        }
    }
    EXPECT_EQ(window.Frame().ActiveChild(), nullptr);
    EXPECT_EQ(window.boxes.value(3), u"Save changes to demo?"_s);
}

TEST(Arrange, TheButtonsOfEveryTitleBarAreSeenOnADarkDesktop)
{
    TestWindow window;
    window.MakeProject("other", "<APP/>");
    window.Start({window.Project(), window.Project("other")});
    QPalette dark(QColor(0x2B, 0x2B, 0x2B));
    window.Frame().setPalette(dark);
    window.Frame().RunCommand(CMD_TILE);
    window.Settle();
    for (QMdiSubWindow *child : window.Frame().findChild<QMdiArea *>()->subWindowList()) {
        const QImage bar = child->grab(QRect(child->width() - 70, 4, 66, 18)).toImage();
        int lightest = 0;
        for (int y = 0; y < bar.height(); ++y) {
            for (int x = 0; x < bar.width(); ++x)
                lightest = qMax(lightest, qGray(bar.pixel(x, y)));
        }
        EXPECT_GT(lightest, 200) << child->windowTitle().toStdString();
    }
}

TEST(MainFrame, TheTipsOfTheToolBarNameTheKeys)
{
    TestWindow window;
    window.Start();
    QStringList tips;
    for (const QAction *action : window.Frame().findChild<QToolBar *>()->actions())
        tips += action->isSeparator() ? QStringList() : QStringList(action->toolTip());
    EXPECT_EQ(tips.join(u';').toStdString(),
              "Open (Ctrl+O);Save (Ctrl+S);Undo (Ctrl+Z);Redo (Ctrl+Y);Output;About Morvanite");
}
