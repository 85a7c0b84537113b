// SPDX-License-Identifier: MIT
// Tests how the windows of projects are arranged, minimised and closed, and the state afterwards.
#include "TestWindow.h"

#include <QMdiArea>
#include <QMdiSubWindow>
#include <QStyle>
#include <QTest>
#include <QToolBar>

TEST(Arrange, CascadeKeepsAllTitleBarsVisible)
{
    TestWindow window;
    QStringList projects;
    for (const char name : QByteArray("abcdefghijklmnopqrstuvwxyz")) {
        window.MakeProject(QByteArray(1, name), "<APP/>");
        projects.append(window.Project(QByteArray(1, name)));
    }
    window.Start(projects);
    auto *const area = window.Frame().findChild<QMdiArea *>();
    const int height = window.Frame().style()->pixelMetric(QStyle::PM_TitleBarHeight);
    for (const QSize &size : {QSize(700, 600), QSize(500, 450)}) {
        window.Frame().resize(size);
        window.Frame().RunAction(ACTION_CASCADE);
        window.Settle();
        const QList<QMdiSubWindow *> windows = area->subWindowList(QMdiArea::StackingOrder);
        ASSERT_EQ(windows.size(), 26);
        EXPECT_EQ(windows.last(), &window.Child());
        for (qsizetype i = 0; i < windows.size(); ++i) {
            const QRect title(windows[i]->pos(), QSize(60, height));
            QRegion covered = QRegion(title) - area->viewport()->rect();
            for (qsizetype above = i + 1; above < windows.size(); ++above)
                covered += windows[above]->geometry() & title;
            EXPECT_TRUE(covered.isEmpty()) << i << ' ' << size.width();
        }
    }
}

TEST(Arrange, KeepsTheFocus)
{
    OpenWindow window;
    for (const ActionId id : {ACTION_TILE, ACTION_CASCADE}) {
        window.Child().showMaximized();
        window.Tree().setFocus();
        window.Settle();
        window.Frame().RunAction(id);
        window.Settle();
        EXPECT_EQ(QApplication::focusWidget(), &window.Tree());
    }
}

TEST(Arrange, CtrlF4ClosesTheActiveProjectAndAsks)
{
    TestWindow window;
    window.MakeProject("other", "<APP/>");
    window.Start({window.Project(), window.Project("other")});
    window.Answer({QMessageBox::No, QMessageBox::No});
    for (const char *name : {"other", "demo"}) {
        window.Frame().activateWindow();
        window.Tree().setFocus();
        window.Document().SetModifiedFlag(true);
        QTest::keyClick(&window.Tree(), Qt::Key_F4, Qt::ControlModifier);
        window.Settle();
        EXPECT_EQ(window.boxes.value(window.boxes.size() - 1), u"Save changes to %1?"_s.arg(QLatin1String(name)));
        if (window.Frame().ActiveChild())
            window.Child().showNormal();
    }
    EXPECT_EQ(window.Frame().ActiveChild(), nullptr);
}

TEST(MainFrame, ToolTipsOfTheToolBarNameTheKeys)
{
    TestWindow window;
    window.Start();
    QStringList tips;
    for (const QAction *action : window.Frame().findChild<QToolBar *>()->actions())
        tips += action->isSeparator() ? QStringList() : QStringList(action->toolTip());
    EXPECT_EQ(tips.join(u';').toStdString(),
              "Open (Ctrl+O);Save (Ctrl+S);Undo (Ctrl+Z);Redo (Ctrl+Y);Output;About Morvanite");
}
