#include "FileWindow.h"

// Rows by ID: ID_A (audio), ID_B2 (video, Push), ID_B10 (binary), ID_GONE (binary, not there), the new row.

TEST(FilePane, ListsNamesRenamesAndMakes)
{
    FileWindow window;
    const QStringList rows{u"ID_A|Normal|.\\res\\a.wav"_s, u"ID_B2|Push|.\\res\\b2.avi"_s,
                           u"ID_B10|Normal|.\\res\\b10.txt"_s, u"ID_GONE|Normal|.\\res\\gone.png"_s, u"<New>||"_s};
    EXPECT_EQ(window.Rows(), rows);
    EXPECT_EQ(window.Grid().Widths(), (std::vector<int>{200, 80, 400}));

    window.Grid().grab().save(u"/tmp/wfiles.png"_s);
    window.Document().SetModifiedFlag(false);
}
