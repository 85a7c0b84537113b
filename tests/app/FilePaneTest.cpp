// SPDX-License-Identifier: MIT
#include "FileWindow.h"

#include <QScrollBar>

#include <unistd.h>

// Rows by ID: ID_A (audio), ID_B2 (video, Push), ID_B10 (binary), ID_GONE (binary, its file is missing), the new row.

TEST(FilePane, ListsSortsAndRemembersTheOrder)
{
    FileWindow window;
    EXPECT_EQ(window.Rows().join(u'\n').toStdString(),
              "ID_A|Normal|.\\res\\a.wav\nID_B2|Push|.\\res\\b2.avi\nID_B10|Normal|.\\res\\b10.txt\n"
              "ID_GONE|Normal|.\\res\\gone.png\n<New>||");
    EXPECT_EQ(window.Grid().Widths(), (std::vector<int>{200, 80, 400}));
    EXPECT_TRUE(window.Grid().model()->index(3, 0).data(Qt::ToolTipRole).toString().contains(u"not found"_s));
    for (int clicks = 0; clicks < 2; ++clicks)
        window.ClickHeader(window.Grid(), 2);
    EXPECT_EQ(window.Rows().first(), u"ID_GONE|Normal|.\\res\\gone.png"_s);
    EXPECT_EQ(window.Rows().last(), u"<New>||"_s);
    window.Grid().horizontalHeader()->resizeSection(1, 91);
    window.Frame().RunAction(ACTION_THUMBNAILS);
    EXPECT_EQ(window.Grid().rowHeight(0), 40);
    window.app.reset();
    window.Open(KIND_AUDIO);
    EXPECT_EQ(window.Rows(), (QStringList{u"ID_A|Normal|.\\res\\a.wav"_s, u"<New>||"_s}));
    EXPECT_EQ(window.Grid().Widths(), (std::vector<int>{200, 91, 400}));
    EXPECT_EQ(window.Grid().horizontalHeader()->sortIndicatorOrder(), Qt::DescendingOrder);
    EXPECT_EQ(window.Grid().rowHeight(0), 40);
}

TEST(FilePane, EditsIdsInPlace)
{
    FileWindow window;
    window.Answer({QMessageBox::Ok, QMessageBox::Ok});
    window.Click(0, 0);
    EXPECT_FALSE(window.Editor().isVisible()) << "a click doesn't start an edit";
    window.DoubleClick(0, 0);
    EXPECT_EQ(window.Editor().maxLength(), 64);
    QTest::keyClicks(&window.Editor(), u"1 x"_s);
    QTest::keyClick(&window.Editor(), Qt::Key_Return);
    ASSERT_TRUE(window.WaitFor([&] { return window.boxes.size() == 1 && window.Editor().isVisible(); }));
    EXPECT_EQ(window.Editor().text(), u"ID_A"_s);
    window.Activate();
    QTest::keyClicks(&window.Editor(), u" id_z "_s);
    QTest::keyClick(&window.Editor(), Qt::Key_Return);
    EXPECT_EQ(window.Rows().first(), u"ID_Z|Normal|.\\res\\a.wav"_s) << "and it isn't sorted again";

    window.Frame().RunAction(ACTION_NEW);
    EXPECT_EQ(window.Editor().text(), u"<New>"_s);
    QTest::keyClicks(&window.Editor(), u"id_b2"_s);
    QTest::keyClick(&window.Editor(), Qt::Key_Return);
    ASSERT_TRUE(window.WaitFor([&] { return window.boxes.size() == 2 && window.Editor().isVisible(); }));
    EXPECT_EQ(window.boxes, (QStringList{u"The ID is invalid."_s, u"The ID already exists, or it is reserved."_s}));
    window.Activate();
    QTest::keyClicks(&window.Editor(), u"id_typed"_s);
    window.Frame().RunAction(ACTION_SAVE); // applies the typed text
    EXPECT_EQ(window.Rows().mid(4), (QStringList{u"ID_TYPED|Normal|"_s, u"<New>||"_s}));
    EXPECT_EQ(window.Grid().SelectedRows(), std::vector<int>{4}) << "the row became the resource's";
    EXPECT_THAT(window.folder.Get("demo/res/demo.res.xml").toStdString(), testing::HasSubstr("ID_TYPED"));
}

TEST(FilePane, PlacesTheButtonAndTheBoxOfTypes)
{
    FileWindow window;
    const auto isPlaced = [&] { return window.Button().isVisible(); };
    for (const int width : {5, 18, 19, 101}) {
        window.Grid().horizontalHeader()->resizeSection(2, width);
        window.Click(0, 0);
        EXPECT_EQ(isPlaced(), width >= 19) << width;
    }
    const QRect row = window.Grid().RowRect(0);
    EXPECT_EQ(window.Button().geometry(), QRect(331, row.top() - 2, 50, row.height() + 4));
    window.Grid().horizontalHeader()->resizeSection(0, 100);
    EXPECT_EQ(window.Button().x(), 231) << "follows the header";
    window.Grid().horizontalHeader()->resizeSection(2, 2000);
    window.Grid().horizontalScrollBar()->setValue(100);
    EXPECT_EQ(window.Button().geometry().right(), window.Grid().viewport()->width() - 1);
    window.Grid().horizontalScrollBar()->setValue(0);
    window.Click(4, 0);
    EXPECT_FALSE(isPlaced()) << "the new row";
    window.Grid().horizontalHeader()->resizeSection(0, 0);
    window.Grid().horizontalHeader()->resizeSection(2, window.Grid().viewport()->width() - 80);
    window.Settle();
    window.Click(0, 2);
    EXPECT_TRUE(isPlaced());
    window.Frame().RunAction(ACTION_RENAME); // makes the IDs wider, so that the list scrolls
    window.Settle();
    EXPECT_TRUE(window.Editor().isVisible() && !isPlaced());
    QTest::keyClick(&window.Editor(), Qt::Key_Escape);
    window.Document().SetModifiedFlag(false);

    const auto choose = [&](const QString &type) {
        window.TypeBox().setCurrentText(type);
        Q_EMIT window.TypeBox().activated(window.TypeBox().currentIndex());
    };
    window.Click(0, 2);
    EXPECT_TRUE(isPlaced());
    window.Click(0, 1);
    EXPECT_TRUE(window.TypeBox().isVisible() && window.TypeBox().hasFocus() && !isPlaced());
    choose(u"Other"_s);
    EXPECT_TRUE(window.TypeBox().isVisible()) << "not a type that a row can have";
    choose(u"Push"_s);
    EXPECT_FALSE(window.TypeBox().isVisible());
    EXPECT_EQ(window.Rows().first(), u"ID_A|Push|.\\res\\a.wav"_s);
    EXPECT_EQ(window.List().At(0)->Id()->pushKind, PUSH_AUDIO);
    window.Click(1, 1);
    QTest::keyClick(&window.TypeBox(), Qt::Key_Up); // selects the other type, like a click
    EXPECT_EQ(window.Rows()[1], u"ID_B2|Normal|.\\res\\b2.avi"_s);
    window.Click(1, 1);
    window.Click(2, 0); // the box loses the focus
    EXPECT_TRUE(!window.TypeBox().isVisible() && isPlaced());
    window.Click(2, 1);
    QTest::keyClick(&window.TypeBox(), Qt::Key_Escape);
    window.Grid().Select({0, 1, 2});
    EXPECT_FALSE(isPlaced());
    window.Frame().RunAction(ACTION_PUSH_FILE);
    EXPECT_TRUE(window.Rows()[2].startsWith(u"ID_B10|Push|"_s));
    EXPECT_FALSE(window.Document().IsModified());
}

TEST(FilePane, AddsDroppedFilesAndReportsTheRestInOneBox)
{
    FileWindow window;
    window.Go(KIND_AUDIO);
    window.Answer({QMessageBox::Ok, QMessageBox::Ok});
    for (const char *name : {"x.bmp", "one.wav", "two.mp3", "sub/three.wav"})
        window.folder.Put(name, "x");
    window.Grid().SelectAlone(0, 0);
    window.Drop(QList<QUrl>{QUrl::fromLocalFile(window.folder.Path("sub")),
                            QUrl::fromLocalFile(window.folder.Path("one.wav")), QUrl::fromEncoded("file:///%FF%FE.wav"),
                            QUrl::fromLocalFile(window.folder.Path("x.bmp")),
                            QUrl::fromLocalFile(window.folder.Path("two.mp3"))});
    ASSERT_TRUE(window.WaitFor([&] { return window.boxes.size() == 1; }));
    EXPECT_THAT(window.boxes[0].toStdString(),
                testing::MatchesRegex("\"[^\n]*.wav\": Its path isn't valid UTF-8[^\n]*\n"
                                      "\"x.bmp\": Inappropriate file type."));
    EXPECT_EQ(window.List().Files(), 3);
    EXPECT_EQ(window.List().CellText(1, 0) + window.List().CellText(2, 0), u"ID_AUDIO_ONEID_AUDIO_TWO"_s);
    EXPECT_TRUE(window.Button().isVisible());

    QStringList many;
    for (int i = 0; i < 25; ++i)
        many << window.folder.Path(("none" + QByteArray::number(i) + ".wav").constData());
    window.Activate();
    window.Drop(many);
    ASSERT_TRUE(window.WaitFor([&] { return window.boxes.size() == 2; }));
    EXPECT_TRUE(window.boxes[1].endsWith(u"\n... and 5 more; the output lists them all"_s));
    EXPECT_THAT(window.OutputText(), testing::HasSubstr("none24.wav"));
}

TEST(FilePane, BrowsesImportsOpensAndDeletes)
{
    FileWindow window;
    window.Answer({QMessageBox::Ok, QMessageBox::Ok, QMessageBox::No, QMessageBox::Yes, QMessageBox::Yes});
    window.folder.Put("demo/other.wav", "x");
    window.folder.Put("demo/more.avi", "x");
    window.Click(0, 0);
    window.Choose({window.folder.Path("demo/other.wav")});
    QTest::mouseClick(&window.Button(), Qt::LeftButton);
    EXPECT_EQ(window.Rows().first(), u"ID_A|Normal|.\\other.wav"_s);
    window.Choose({window.folder.Path("demo/more.avi")});
    window.DoubleClick(4, 2); // the new row
    EXPECT_EQ(window.Rows().mid(4), (QStringList{u"ID_VIDEO_MORE|Normal|.\\more.avi"_s, u"<New>||"_s}));
    EXPECT_EQ(window.Grid().SelectedRows(), std::vector<int>{4});
    window.Choose({window.folder.Path("demo/more.avi")});
    window.Frame().RunAction(ACTION_IMPORT);
    EXPECT_EQ(window.Rows().value(5), u"ID_VIDEO_MORE1|Normal|.\\more.avi"_s);

    QByteArrayList opened;
    bool isOpening = true;
    window.View().opener.open = [&](const QByteArray &path) {
        opened << path;
        return isOpening;
    };
    window.Grid().SelectAlone(0, 0);
    window.View().Run(ACTION_OPEN_FILE);
    window.View().Run(ACTION_OPEN_FOLDER);
    EXPECT_EQ(opened,
              (QByteArrayList{window.folder.Path("demo/other.wav").toUtf8(), window.folder.Path("demo").toUtf8()}));
    const QByteArray loop = window.folder.Path("demo/loop").toUtf8();
    ASSERT_EQ(symlink("loop", loop.constData()), 0);
    EXPECT_EQ(window.View().opener.OpenFile(loop), u"Failed to open the file."_s) << "it is there, but not reached";
    isOpening = false;
    window.View().Run(ACTION_OPEN_FOLDER);
    ASSERT_TRUE(window.WaitFor([&] { return window.boxes.size() == 1; }));
    window.Grid().SelectAlone(3, 0);
    window.View().Run(ACTION_OPEN_FILE);
    ASSERT_TRUE(window.WaitFor([&] { return window.boxes.size() == 2; }));
    EXPECT_EQ(window.boxes, (QStringList{u"Failed to open the folder."_s, u"The specified file was not found."_s}));

    window.Grid().Select({1, 3, 5, 6});
    window.Frame().RunAction(ACTION_DELETE);
    EXPECT_EQ(window.Rows().size(), 7);
    window.Frame().RunAction(ACTION_DELETE);
    EXPECT_EQ(window.Rows().size(), 4) << "the new row stays";
    window.Frame().RunAction(ACTION_DELETE_ALL);
    EXPECT_EQ(window.Rows(), QStringList{u"<New>||"_s});
    EXPECT_EQ(window.boxes.mid(2), (QStringList{u"The selected item(s) will be deleted. Continue?"_s,
                                                u"The selected item(s) will be deleted. Continue?"_s,
                                                u"All the item(s) will be deleted. Continue?"_s}));
}

TEST(FilePane, HasItsMenuAndForgetsDestroyedFolders)
{
    FileWindow window;
    window.Grid().Select({0, 1});
    std::string shown;
    window.OpenMenu(window.Grid(), [&shown](const QWidget &menu) { shown = TestWindow::MenuEntriesOf(menu); });
    EXPECT_EQ(shown,
              "&New|&Import...|/-Rename|-&Browse...|/-&Open|-Open &Folder|/&Delete\tDel|Delete &All|/-Push Resource|");

    window.Grid().SelectAlone(1, 0);
    window.Frame().RunAction(ACTION_DETAILS);
    window.Go(KIND_BINARY);
    window.Go(KIND_FILES);
    window.Frame().RunAction(ACTION_RENAME);
    window.Document().ClearByKind(*window.Document().root.FindFolder(KIND_VIDEO, 2));
    EXPECT_FALSE(window.Editor().isVisible());
    EXPECT_EQ(window.Grid().model()->rowCount(), 0) << "until the update";
    window.Document().UpdateAllViews(nullptr);
    EXPECT_EQ(window.Rows().size(), 4);
    window.Frame().RunAction(ACTION_SELECT_ALL);
    EXPECT_EQ(window.Grid().SelectedRows().size(), 4U);
}
