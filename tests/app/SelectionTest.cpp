// SPDX-License-Identifier: MIT
// Tests the selection, and the rows of the views, while folders are created and destroyed.
#include "TestProject.h"
#include "TestWindow.h"

#include <QListWidget>

namespace
{

/// Adds a layout's folder to that of a resolution.
CResFolder &AddLayout(CResModel &model, CResFolder &resolution, const char *title)
{
    resolution.AddFolder(model.CreateFolder(KIND_LAYOUT, resolution.index));
    CResFolder &layout = *resolution.subfolders.back();
    layout.title = QString::fromLatin1(title);
    return layout;
}

} // namespace

TEST(Selection, ReplacesADestroyedNodeByTheOneThatTakesItsPlace)
{
    TestProject project("<APP/>", "[Layout]\nfolders=1\n");
    CResDoc &doc = *project.Open();
    CResFolder &screen = *doc.root.FindFolder(KIND_RESO_LAYOUTS, 1, 2);
    CResFolder &first = AddLayout(doc, screen, "ID_FIRST");
    CResFolder &second = AddLayout(doc, screen, "ID_SECOND");
    Selection selection(doc);
    int changes = 0;
    const Notifier<>::Listener listener(selection.changed, [&changes] { ++changes; });
    selection.Refresh();
    EXPECT_EQ(selection.SelectedFolder(), &doc.root);
    EXPECT_FALSE(selection.GoOut());

    selection.SelectFolder(&second);
    selection.SelectFolder(&second);
    EXPECT_EQ(changes, 2);
    EXPECT_TRUE(doc.DeleteFolder(first));
    doc.ClearFolder(*doc.root.FindFolder(KIND_AUDIO, 2));
    EXPECT_EQ(selection.SelectedFolder(), &second) << "others were destroyed";
    doc.ClearFolder(screen); // a reload of its layout file does this
    EXPECT_EQ(selection.SelectedFolder(), nullptr);
    AddLayout(doc, screen, "ID_OTHER");
    CResFolder &again = AddLayout(doc, screen, "ID_SECOND");
    selection.Refresh();
    EXPECT_EQ(selection.SelectedFolder(), &again);

    EXPECT_TRUE(doc.DeleteFolder(again));
    EXPECT_EQ(selection.SelectedFolder(), nullptr);
    selection.Refresh();
    EXPECT_EQ(selection.SelectedFolder(), &doc.root) << "nothing has replaced it";

    for (const quint32 kind : {KIND_STRINGS, KIND_RESO_LAYOUTS}) {
        CResFolder *const emptied = doc.root.FindFolder(kind, 2);
        selection.SelectFolder(emptied);
        doc.ClearFolder(*emptied);
        EXPECT_EQ(selection.SelectedFolder(), emptied) << "it was only emptied";
    }
    CResFolder &images = *doc.root.FindFolder(KIND_RESO_IMAGES, 1, 2);
    selection.SelectFolder(&images);
    EXPECT_TRUE(selection.GoOut());
    EXPECT_EQ(selection.SelectedFolder(), doc.root.FindFolder(KIND_IMAGES, 1));
    selection.SelectFolder(&images);
    images.kind |= KIND_FLAG_OFF; // the user took the resolution out of use
    selection.Refresh();
    EXPECT_EQ(selection.SelectedFolder(), &doc.root);
}

TEST(Selection, TheWindowHidesRowsOfADestroyedFolderAndShowsNewOnesAfterTheUpdate)
{
    OpenWindow window(TestWindow::WITH_LAYOUTS);
    CResDoc &doc = window.Document();
    CResFolder &screen = *doc.root.FindFolder(KIND_RESO_LAYOUTS, 1, 2);
    for (const char *title : {"ID_A", "ID_B", "ID_C"})
        AddLayout(doc, screen, title);
    doc.UpdateAllViews(nullptr);
    auto &contents = *window.Child().findChild<QListWidget *>();
    window.Child().Selected().SelectFolder(&screen);
    EXPECT_EQ(contents.count(), 3);
    EXPECT_EQ(window.Tree().currentItem()->childCount(), 3);

    window.Tree().SetContextFolder(screen.subfolders[1].get());
    EXPECT_TRUE(doc.DeleteFolder(*screen.subfolders[1]));
    EXPECT_EQ(contents.count(), 2) << "also before the update";
    EXPECT_EQ(window.Tree().currentItem()->childCount(), 2);
    EXPECT_TRUE(window.Frame().IsEnabled(ACTION_NEW_LAYOUT)) << "applies to the selected folder now";
    doc.ClearFolder(screen);
    EXPECT_EQ(contents.count(), 0);
    EXPECT_EQ(window.Tree().currentItem()->childCount(), 0);

    window.Child().Selected().SelectFolder(&AddLayout(doc, screen, "ID_B"));
    doc.UpdateAllViews(nullptr);
    doc.ClearFolder(doc.root);
    window.Settle(); // no paint event or query reads a destroyed node
    EXPECT_EQ(window.Selected(), nullptr);
    EXPECT_FALSE(window.Frame().IsEnabled(ACTION_CLEAR));
    doc.UpdateAllViews(nullptr);
    EXPECT_EQ(window.Selected(), &doc.root);
}
