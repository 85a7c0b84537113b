// SPDX-License-Identifier: MIT
#include "ListSettings.h"
#include "Settings.h"
#include "TempFolder.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

TEST(ListSettings, StoreTheWidthsFromLastColumnToFirstAndTheSortState)
{
    const TempFolder folder;
    Settings settings(folder.Path("a.ini"), folder.Path("user/a.ini"));
    ListSettings list(settings, 7);
    EXPECT_EQ(list.Width(1, 80), 80);
    EXPECT_EQ(list.SortState(1), 1);
    EXPECT_TRUE(list.Save({200, 0, 400}, -3));
    EXPECT_EQ(folder.Get("a.ini"), "[wnd_0007]\n2=400\n1=0\n0=200\nsort=-3\n");

    const auto writeOf = [&folder] {
        struct stat info = {};
        stat(folder.Path("a.ini").toUtf8().constData(), &info);
        return info.st_ino; // every write replaces the file
    };
    const auto before = writeOf();
    EXPECT_TRUE(list.Save({200, 0, 400}, -3));
    EXPECT_EQ(writeOf(), before) << "nothing has changed";

    folder.Put("a.ini", "[wnd_1011]\n0=-2\n1=99999999\n2=x\nsort=-2147483648\n[wnd_0007]\n0=120\n");
    settings.Refresh();
    const ListSettings other(settings, 1011);
    EXPECT_EQ(other.Width(0, 80), 80) << "no width is below 0";
    EXPECT_LT(other.Width(1, 80), 20'000);
    EXPECT_EQ(other.Width(2, 80), 0) << "like text that isn't a number";
    EXPECT_EQ(other.SortState(1), 1) << "the other direction would be no number";
    EXPECT_EQ(list.Width(0, 200), 120);
    EXPECT_EQ(list.SortState(0), 0);
}
