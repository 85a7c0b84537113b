// SPDX-License-Identifier: MIT
// Tests which sizes of docking bars are the user's choice, and where they are restored.
#include "HostFiles.h"
#include "Settings.h"
#include "TestWindow.h"

#include <QScreen>
#include <QSplitter>
#include <QTest>
#include <QWindow>

#include <sys/inotify.h>
#include <unistd.h>

namespace
{

Settings SettingsOf(const TestWindow &window)
{
    return Settings(window.folder.Path("bin/Morvanite.ini"), window.folder.Path("user/morvanite/Morvanite.ini"));
}

CSizingControlBar &Output(const TestWindow &window)
{
    return window.Frame().Bars().OutputBar();
}

/// Drags the divider between the Output bar, docked at the right, and the area to its left.
void DragDivider(const TestWindow &window, int by)
{
    const QPoint place = Output(window).geometry().topLeft() + QPoint(-2, 100);
    QTest::mousePress(&window.Frame(), Qt::LeftButton, {}, place);
    QTest::mouseMove(&window.Frame(), place + QPoint(by, 0));
    window.Settle();
    QTest::mouseRelease(&window.Frame(), Qt::LeftButton, {}, place + QPoint(by, 0));
    window.Settle();
}

} // namespace

TEST(BarSizes, AreKeptForEachPlaceAndRestoredAfterARestart)
{
    TestWindow window;
    window.Start();
    const int first = Output(window).width();
    EXPECT_TRUE(first > 100 && first <= window.Frame().width() / 4) << first;
    DragDivider(window, -80);
    const int sideWidth = Output(window).width();
    EXPECT_EQ(sideWidth, first + 80);
    for (const bool isRestarted : {false, true}) {
        for (const Qt::DockWidgetArea area : {Qt::BottomDockWidgetArea, Qt::TopDockWidgetArea}) {
            window.Frame().addDockWidget(area, &Output(window));
            window.Settle();
            EXPECT_NEAR(Output(window).height(), 150, 2) << isRestarted;
        }
        Output(window).setFloating(true);
        window.Settle();
        EXPECT_EQ(Output(window).size(), isRestarted ? QSize(333, 222) : QSize(400, 150));
        Output(window).windowHandle()->resize(333, 222); // the user drags its corner
        window.Settle();
        Output(window).hide();
        Output(window).move(9000, 9000); // its screen is disconnected
        Output(window).show();
        window.Settle();
        EXPECT_TRUE(window.Frame().screen()->geometry().contains(Output(window).geometry()));
        Output(window).resize(700, 90); // docking does this before it docks
        window.Settle();
        Output(window).setFloating(false);
        window.Frame().addDockWidget(Qt::RightDockWidgetArea, &Output(window));
        window.Settle();
        EXPECT_EQ(Output(window).width(), sideWidth) << isRestarted;
        window.Frame().close();
        const Settings settings = SettingsOf(window);
        EXPECT_EQ(settings.Int("DockState-SCBar-2", "sizeHorzCY", 0), 150);
        EXPECT_EQ(settings.Int("DockState-SCBar-2", "sizeVertCX", 0), sideWidth);
        EXPECT_EQ(settings.String("DockState-SCBar-2", "sizeFloatCX"), u"333");
        window.Restart();
    }
    EXPECT_EQ(Output(window).width(), sideWidth);
}

TEST(BarSizes, AreKeptWhenASmallWindowReducesThem)
{
    OpenWindow window;
    window.Frame().resize(1400, 700);
    window.Settle();
    DragDivider(window, -450);
    const int chosen = Output(window).width();
    for (int round = 0; round < 2; ++round) {
        window.Frame().resize(500, 450);
        window.Settle();
        EXPECT_LT(Output(window).width(), chosen);
        window.Frame().close();
        EXPECT_EQ(SettingsOf(window).Int("DockState-SCBar-2", "sizeVertCX", 0), chosen);
        EXPECT_EQ(SettingsOf(window).Int("split1st", "width", 0), 200);
        window.Restart();
        EXPECT_LT(Output(window).width(), chosen);
        window.Frame().resize(1400, 700);
        window.Settle();
        EXPECT_EQ(Output(window).width(), chosen);
    }
}

TEST(BarSizes, AreWrittenOnceOnClosing)
{
    TestWindow window;
    window.MakeProject("other", "<APP/>");
    window.Start({window.Project(), window.Project("other")});
    window.Child().findChild<QSplitter *>()->handle(1)->setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Right); // so that the windows have different settings to store
    Output(window).hide();
    const FileHandle events(inotify_init1(IN_NONBLOCK));
    // IN_CREATE too: inotify merges equal events that follow each other.
    ASSERT_GE(inotify_add_watch(events.Get(), window.folder.Path("bin").toUtf8(), IN_CREATE | IN_MOVED_TO), 0);
    EXPECT_TRUE(window.Frame().close());
    alignas(inotify_event) char told[1 << 16];
    const ssize_t size = read(events.Get(), told, sizeof told);
    int replaced = 0;
    for (ssize_t at = 0; at < size;) {
        const auto *const event = reinterpret_cast<const inotify_event *>(told + at);
        replaced += (event->mask & IN_MOVED_TO) != 0;
        at += ssize_t(sizeof(inotify_event) + event->len);
    }
    EXPECT_EQ(replaced, 1);
    EXPECT_EQ(SettingsOf(window).Int("split1st", "width", 0), 216);
}
