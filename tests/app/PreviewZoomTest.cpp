// SPDX-License-Identifier: MIT
#include "PreviewZoom.h"

#include <rapidcheck.h>

#include <gtest/gtest.h>

#include <limits>

TEST(PreviewZoom, ScalesTowardZeroAndPlacesTheScreen)
{
    PreviewZoom zoom;
    zoom.SetScreen({240, 321});
    zoom.Set(75);
    EXPECT_EQ(zoom.Scaled(PreviewRect{-3, 3, -1, 1}), (PreviewRect{-2, 2, 0, 0}));
    EXPECT_EQ(zoom.ScreenSize(), QSize(180, 240));
    EXPECT_EQ(zoom.ScrollSize(), QSize(200, 260));
    EXPECT_EQ(zoom.ScreenCorner({301, 100}), QPoint(60, 10)) << "centred as far as there is room";
    EXPECT_EQ(zoom.LayoutPoint({61, 8}, {{0, 2}, {301, 100}}), QPoint(1, 0));
    EXPECT_EQ(zoom.LayoutPoint({0, 0}, {{0, 0}, {301, 100}}), QPoint(-80, -13));
    EXPECT_EQ(PreviewZoom::PointText({-80, -13}), QStringLiteral("(-80, -13)"));
    zoom.Set(1000);
    constexpr qint32 MAX = std::numeric_limits<qint32>::max();
    EXPECT_EQ(zoom.Scaled(MAX), MAX);
    EXPECT_EQ(zoom.Scaled(-MAX), -MAX - 1);
}

TEST(PreviewZoom, StepsWithinItsLimitsAndFitsBeyondThem)
{
    PreviewZoom zoom;
    const auto at = [&zoom](int percent) -> PreviewZoom & {
        zoom.Set(percent);
        return zoom;
    };
    EXPECT_TRUE(at(995).ZoomIn() && zoom.Percent() == 1000 && !zoom.CanZoomIn() && !zoom.ZoomIn());
    EXPECT_TRUE(at(11).ZoomOut() && zoom.Percent() == 10 && !zoom.CanZoomOut() && !zoom.ZoomOut());
    EXPECT_TRUE(at(100).Wheel(-59) && zoom.Percent() == 96);
    EXPECT_FALSE(at(100).Wheel(11));
    EXPECT_TRUE(at(100).Wheel(std::numeric_limits<int>::max()) && zoom.Percent() == 1000);

    zoom.SetScreen({320, 240});
    EXPECT_TRUE(zoom.Fit({660, 420}) && zoom.Percent() == 166);
    EXPECT_TRUE(zoom.Fit({5, 500}) && zoom.Percent() == 0);
    EXPECT_EQ(zoom.LayoutPoint({50, 50}, {}), QPoint(0, 0));
    EXPECT_TRUE(zoom.ZoomIn() && zoom.Percent() == 10);
    zoom.SetScreen({4, 4});
    EXPECT_TRUE(zoom.Fit({820, 820}) && zoom.Percent() == 20'000 && !zoom.CanZoomIn());
    EXPECT_TRUE(zoom.ZoomOut() && zoom.Percent() == 1000);
    zoom.SetScreen({0, 4});
    EXPECT_TRUE(zoom.Fit({820, 820}) && zoom.Percent() == 100);

    EXPECT_EQ(at(75).MarkedEntry(), 4U);
    EXPECT_EQ(zoom.CustomizeLabel(), QStringLiteral("&Customize..."));
    EXPECT_EQ(at(20).MarkedEntry(), PreviewZoom::PRESETS.size());
    EXPECT_EQ(zoom.CustomizeLabel(), QStringLiteral("Customize(20%)..."));
}

TEST(PreviewZoom, KeepsThePointUnderThePointer)
{
    EXPECT_TRUE(rc::check([] {
        const auto number = [](int from, int to) { return *rc::gen::inRange(from, to); };
        PreviewZoom before;
        before.SetScreen({number(1, 900), number(1, 900)});
        before.Set(number(10, 1001));
        PreviewZoom after = before;
        after.Set(number(10, 1001));
        const QSize client(number(50, 600), number(50, 600));
        const QSize room = before.ScrollSize() - client;
        const PreviewPlace place{{number(0, std::max(room.width(), 0) + 1), number(0, std::max(room.height(), 0) + 1)},
                                 client};
        const QPoint pointer(number(0, client.width()), number(0, client.height()));
        const QPoint scroll = after.ScrollKeeping(pointer, before, place, client);
        const QPoint now = after.LayoutPoint(pointer, {scroll, client});
        const QPoint was = before.LayoutPoint(pointer, place);
        const QSize most = after.ScrollSize() - client;
        RC_ASSERT(scroll.x() >= 0 && scroll.x() <= std::max(most.width(), 0));
        // A pixel covers several layout units at a small zoom.
        if (scroll.x() > 0 && scroll.x() < most.width())
            RC_ASSERT(std::abs(now.x() - was.x()) <= 1 + 50 / after.Percent());
        if (scroll.y() > 0 && scroll.y() < most.height())
            RC_ASSERT(std::abs(now.y() - was.y()) <= 1 + 50 / after.Percent());
    }));
}
