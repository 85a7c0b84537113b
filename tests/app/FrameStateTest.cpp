// SPDX-License-Identifier: MIT
#include "FrameState.h"
#include "RecentFiles.h"
#include "Settings.h"
#include "TestWindow.h"

#include <QStatusBar>
#include <QWindow>

TEST(FrameState, ParsesAStoredPositionAndMovesItOntoAScreen)
{
    EXPECT_EQ(ParsePosition(u"10,20,610,520"_s), QRect(10, 20, 600, 500));
    EXPECT_EQ(ParsePosition(u" 10, 20,610,520x"_s), QRect(10, 20, 600, 500));
    EXPECT_EQ(ParsePosition(PositionText(QRect(-5, 7, 600, 500))), QRect(-5, 7, 600, 500));
    for (const QString &wrong : {u""_s, u"1,2,3"_s, u"a,2,3,4"_s, u"1,2,3,99999999999"_s, u"1 ,2,3,4"_s})
        EXPECT_FALSE(ParsePosition(wrong)) << qPrintable(wrong);
    EXPECT_EQ(ParseSize(u"150,400"_s, QSize(1, 1)), QSize(150, 400));
    EXPECT_EQ(ParseSize(u"150,0"_s, QSize(1, 2)), QSize(1, 2));

    const QList<QRect> screens = {QRect(0, 0, 1920, 1080), QRect(1920, 0, 1280, 1024)};
    EXPECT_EQ(BroughtBack(QRect(100, -20, 800, 600), screens), QRect(100, 0, 800, 600)) << "its title can be taken";
    EXPECT_EQ(FittedInto(QRect(900, -5, 800, 2000), QRect(0, 30, 1600, 1000)), QRect(800, 30, 800, 1000));
    for (const QRect &reachable : {QRect(100, 100, 800, 600), QRect(1900, 5, 800, 600), QRect(-700, 0, 800, 600)})
        EXPECT_EQ(BroughtBack(reachable, screens), reachable);
    for (const QRect &lost : {QRect(5000, 5000, 800, 600), QRect(100, -600, 800, 600), QRect(-799, 0, 800, 600)}) {
        const QRect back = BroughtBack(lost, screens);
        EXPECT_TRUE(screens[0].contains(back) && back.size() == lost.size());
    }
    EXPECT_EQ(BroughtBack(QRect(9000, 0, 9000, 10), screens).size(), QSize(1920, 450));
    EXPECT_EQ(BroughtBack(QRect(0, 0, 100'000, 100'000), screens).size(), QSize(3200, 1080));
    EXPECT_EQ(SmallestFrame(QSize(480, 1000)), QSize(480, 450));
}

TEST(RecentFiles, KeepTheLastFourNewestFirstAcrossStarts)
{
    TempFolder folder;
    Settings settings(folder.Path("a.ini"), folder.Path("user/a.ini"));
    RecentFiles files;
    for (const QString &path :
         {u"/1/a.vcproj"_s, u"/2/b.vcproj"_s, u"/3/c.vcproj"_s, u"/4/d.vcproj"_s, u"/5/e.vcproj"_s, u"/3/C.vcproj"_s})
        files.Add(path, settings);
    RecentFiles again;
    again.Read(settings);
    EXPECT_EQ(again.Paths(), QStringList({u"/3/C.vcproj"_s, u"/5/e.vcproj"_s, u"/4/d.vcproj"_s, u"/2/b.vcproj"_s}));
    again.Remove(u"/5/e.vcproj"_s, settings);
    files.Read(settings);
    EXPECT_EQ(files.Paths().size(), 3);
    files.Add(u'/' + QString(100, u'x') + u"/R&D.vcproj"_s, settings);
    EXPECT_TRUE(files.Label(0).startsWith(u"&1 /xxx"_s) && files.Label(0).endsWith(u"/R&&D.vcproj"_s));
    EXPECT_LE(files.Label(0).size(), 64);
}

TEST(FrameState, RestoresTheWindowPosition)
{
    TestWindow window;
    window.Start();
    window.Frame().setGeometry(30, 40, 700, 500);
    window.Settle();
    const QMargins frame = window.Frame().windowHandle()->frameMargins();
    EXPECT_FALSE(frame.isNull());
    window.Frame().Bars().OutputBar().hide();
    window.Frame().RunAction(ACTION_STATUS_BAR);
    window.Frame().close();
    const Settings settings(window.folder.Path("bin/Morvanite.ini"), QString());
    EXPECT_EQ(settings.String("Frame", "position"), PositionText(QRect(30, 40, 700, 500).marginsAdded(frame)));
    EXPECT_EQ(settings.String("Output", "size"), SizeText(window.Frame().Bars().OutputBar().PreferredSize()));
    window.Restart();
    EXPECT_EQ(window.Frame().geometry(), QRect(30, 40, 700, 500));
    EXPECT_TRUE(window.Frame().Bars().OutputBar().isHidden() && window.Frame().statusBar()->isHidden());

    window.Frame().showMaximized();
    window.Frame().close();
    window.Restart();
    EXPECT_TRUE(window.Frame().isMaximized());
    EXPECT_TRUE(window.Frame().Bars().ToolboxBar().isHidden());

    window.Frame().showMinimized();
    const QByteArray before = window.folder.Get("bin/Morvanite.ini");
    window.Frame().close();
    EXPECT_EQ(window.folder.Get("bin/Morvanite.ini").contains("maximized=1"), before.contains("maximized=1"));
    window.Frame().showNormal();
    window.Settle();
    window.Frame().resize(10, 10);
    window.Settle();
    EXPECT_EQ(window.Frame().frameGeometry().size(), QSize(500, 450)) << "with its frame";
}

TEST(FrameState, IgnoresADamagedStateOfTheBars)
{
    TestWindow window;
    window.Start();
    window.Frame().Bars().OutputBar().hide();
    window.Frame().close();
    QByteArray settings = window.folder.Get("bin/Morvanite.ini");
    const qsizetype place = settings.indexOf("state=") + 40;
    settings[place] = settings[place] == 'B' ? 'C' : 'B'; // Qt can crash when it restores such a state
    window.folder.Put("bin/Morvanite.ini", settings);
    window.Restart();
    EXPECT_FALSE(window.Frame().Bars().OutputBar().isHidden());
}
