// SPDX-License-Identifier: MIT
// Tests the choice of a project's resolutions: without a window, in its dialog, and by the command in the window. Also
// tests the dialog for the zoom.
#include "CResoFltr.h"
#include "CTreeFltrDlg.h"
#include "CZoomRatioDlg.h"
#include "FakeBoxes.h"
#include "TestProject.h"
#include "TestWindow.h"
#include "ZoomInput.h"

#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

#include <random>

namespace
{

/// Returns the position of a row's check box, or of its text.
QPoint PlaceIn(const QTreeWidget &tree, const QString &label, bool isText)
{
    const QRect row = tree.visualItemRect(tree.findItems(label, Qt::MatchExactly | Qt::MatchRecursive).front());
    return {row.left() + (isText ? 30 : 9), row.center().y()};
}

/// Returns the resolution folders in use, with the number of layouts or images in each.
std::string InUse(const CResModel &model)
{
    QStringList names;
    for (const quint32 kind : {KIND_IMAGES, KIND_LAYOUTS}) {
        for (const auto &folder : model.root.FindFolder(kind, 2)->subfolders) {
            if ((folder->kind & KIND_FLAG_OFF) == 0)
                names.append(folder->title + u':' + QString::number(folder->resources.Count()));
        }
    }
    return names.join(u' ').toStdString();
}

const QByteArray TWO_SCREENS = "<APP><RESOLUTION width=\"320\" height=\"240\" class=\"image\">"
                               "<IMAGE id=\"ID_WIDE\" type=\"Normal\">w.png</IMAGE></RESOLUTION></APP>";

} // namespace

TEST(ResolutionChoice, AsksWithTheCountsOfChanges)
{
    TestProject project(TWO_SCREENS, "[Layout]\nfolders=1\n");
    CResDoc &doc = *project.Open();
    ASSERT_EQ(InUse(doc), "240x320:0 320x240:1 Default:0 240x320:0 Default:0");
    CResFolder *const images = doc.root.FindFolder(KIND_IMAGES, 2);
    CResFolder *const layouts = doc.root.FindFolder(KIND_LAYOUTS, 2);
    std::mt19937 random(7);
    for (int walk = 0; walk < 200; ++walk) {
        FakeBoxes boxes;
        CResoFltr choice(doc, images, walk % 3 ? layouts : nullptr, boxes);
        CheckTree tree;
        choice.InitTree(tree);
        ASSERT_EQ(tree.items.size(), walk % 3 ? 2U : 1U);
        ASSERT_EQ(tree.items[0].children.size(), 3U) << "Default isn't affected";
        tree.onCheck = [&](CResFolder *folder, bool checked) { choice.OnCheck(folder, checked); };
        const std::string before = InUse(doc);
        int clicks = int(random() % 6);
        while (clicks-- > 0) {
            CheckTree::Item &top = tree.items[random() % tree.items.size()];
            CheckTree::Item &item = random() % 3 ? top.children[random() % 3] : top;
            random() % 5 ? tree.SetCheckAll(item, !item.checked) : tree.SetAll(random() % 2);
        }
        int added = 0, deleted = 0;
        for (const CheckTree::Item &top : tree.items) {
            for (const CheckTree::Item &item : top.children) {
                const bool isInUse = (item.data->kind & KIND_FLAG_OFF) == 0;
                added += !isInUse && item.checked;
                deleted += isInUse && !item.checked;
            }
        }
        const QString counts = u"%1 resolution(s) will be added, and %2 will be deleted."_s.arg(added).arg(deleted);
        const QString question =
            deleted ? u"Yes/No: "_s + counts +
                          u"\r\nAll resources of the deleted resolution(s) will be deleted too. Continue?"_s
                    : u"OK/Cancel: "_s + counts;
        boxes.answers = {false, true};
        EXPECT_EQ(choice.Apply(tree), added + deleted == 0);
        EXPECT_EQ(InUse(doc), before) << "no change before the answer";
        EXPECT_EQ(boxes.asked, added + deleted == 0 ? QStringList() : QStringList{question});
        EXPECT_TRUE(choice.Apply(tree));
        for (const CheckTree::Item &top : tree.items) {
            for (const CheckTree::Item &item : top.children)
                EXPECT_EQ((item.data->kind & KIND_FLAG_OFF) == 0, item.checked);
        }
    }
    EXPECT_TRUE(doc.IsModified());
    EXPECT_FALSE(doc.IsIdInUse(u"ID_WIDE"_s)) << "it was deleted with its resolution";
}

TEST(ResolutionChoice, TheDialogAppliesACheckToTheRowsBelow)
{
    TestProject project(TWO_SCREENS, "[Layout]\nfolders=1\n");
    CResDoc &doc = *project.Open();
    FakeBoxes boxes;
    CResoFltr choice(doc, doc.root.FindFolder(KIND_IMAGES, 2), doc.root.FindFolder(KIND_LAYOUTS, 2), boxes);
    CTreeFltrDlg dialog(choice);
    ShowActive(dialog);
    auto &tree = *dialog.findChild<QTreeWidget *>();
    const auto checks = [&tree] { // of Images, its resolutions, Layouts, its resolutions
        std::string all;
        for (QTreeWidgetItemIterator item(&tree); *item; ++item)
            all += (*item)->checkState(0) == Qt::Checked ? 'x' : '-';
        return all;
    };
    const auto click = [&](const QString &label, bool isText) {
        TestWindow::Click(*tree.viewport(), PlaceIn(tree, label, isText));
    };
    EXPECT_TRUE(tree.topLevelItem(0)->isExpanded());
    click(u"Images"_s, true);
    EXPECT_EQ(checks(), "x-xxx-x-") << "a click on the label changes nothing";
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Space);
    EXPECT_EQ(checks(), "----x-x-");
    click(u"Images"_s, false);
    EXPECT_EQ(checks(), "xxxxx-x-");
    click(u"176x220"_s, false);
    EXPECT_EQ(checks(), "x-xxx-x-") << "the rows above stay";
    const QList<QPushButton *> buttons = dialog.findChildren<QPushButton *>();
    buttons[0]->click();
    EXPECT_EQ(checks(), "xxxxxxxx");
    buttons[1]->click();
    EXPECT_EQ(checks(), "--------");
    boxes.answers = {false, true};
    QTest::keyClick(&tree, Qt::Key_Return);
    EXPECT_TRUE(dialog.isVisible()) << "not applied";
    QTest::keyClick(&tree, Qt::Key_Return);
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_TRUE(boxes.asked.last().startsWith(u"Yes/No: 0 resolution(s) will be added, and 3 will be deleted."_s));
    EXPECT_EQ(InUse(doc), "Default:0 Default:0");
}

TEST(ResolutionChoice, TheCommandUpdatesTreePanesAndSelection)
{
    TestWindow window;
    window.MakeProject("wide", TWO_SCREENS);
    window.Start({window.Project("wide")});
    const auto choose = [&](const QString &label) { // toggles 320x240, and presses Enter until the dialog closes
        QTimer user;
        bool isChosen = false;
        QObject::connect(&user, &QTimer::timeout, [&] {
            auto *const dialog = dynamic_cast<CTreeFltrDlg *>(QApplication::activeModalWidget());
            if (!dialog)
                return;
            auto &tree = *dialog->findChild<QTreeWidget *>();
            if (!std::exchange(isChosen, true))
                window.Click(*tree.viewport(), PlaceIn(tree, u"320x240"_s, false));
            QTest::keyClick(&tree, Qt::Key_Return);
        });
        user.start(10);
        window.Tree().SetContextFolder(CProjView::FolderOf(window.Row(label)));
        window.Frame().RunAction(ACTION_RESOLUTION);
        window.Settle();
    };
    const auto wide = [&] { return window.Document().root.FindFolder(KIND_RESO_IMAGES, 2, 2); };
    window.Child().Selected().SelectFolder(wide());
    EXPECT_FALSE(window.Frame().IsEnabled(ACTION_RESOLUTION)) << "of one resolution";
    EXPECT_FALSE(window.Tree().ChooseResolutions(*wide()));
    window.Answer({QMessageBox::No, QMessageBox::Yes, QMessageBox::Ok});
    choose(u"wide"_s);
    EXPECT_EQ(window.boxes.size(), 2) << "No leaves the dialog open";
    EXPECT_EQ(window.Row(u"320x240"_s), nullptr);
    EXPECT_EQ(window.Selected(), &window.Document().root);
    EXPECT_FALSE(window.Document().IsIdInUse(u"ID_WIDE"_s));
    EXPECT_TRUE(window.Document().IsModified());

    window.Tree().setCurrentItem(window.Row(u"Images"_s));
    EXPECT_TRUE(window.Frame().IsEnabled(ACTION_RESOLUTION));
    choose(u"Images"_s);
    EXPECT_EQ(window.boxes.last(), u"1 resolution(s) will be added, and 0 will be deleted."_s);
    EXPECT_EQ(window.Row(u"Images"_s)->child(1)->text(0), u"320x240"_s) << "in the order of the table";
    auto &contents = *window.Child().findChild<QListWidget *>();
    EXPECT_EQ(contents.count(), 3) << "240x320, 320x240, Default";
    window.Frame().RunAction(ACTION_SAVE);
    EXPECT_TRUE(window.folder.Get("wide/res/wide.res.xml").contains("width=\"320\""));
}

TEST(ZoomDialog, AcceptsNumbersInItsRange)
{
    for (const char *text : {"", "9", "1001", "-10", "10.5", "99999999999", "x"})
        EXPECT_EQ(ZoomInput::Check(QString::fromLatin1(text)), std::nullopt) << text;
    EXPECT_EQ(ZoomInput::Check(u"10"_s), 10);
    EXPECT_EQ(ZoomInput::Check(u"1000"_s), 1000);

    TestWindow boxes;
    CZoomRatioDlg dialog(100);
    ShowActive(dialog);
    boxes.Answer({QMessageBox::Ok});
    QTest::keyClicks(dialog.focusWidget(), u"a9-"_s);
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
    EXPECT_EQ(boxes.boxes, QStringList{u"Enter an integer between 10 and 1000."_s});
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_EQ(dialog.findChild<QLineEdit *>()->selectedText(), u"9"_s) << "selected, so that typing replaces it";
    QTest::keyClicks(dialog.findChild<QLineEdit *>(), u"250"_s);
    QTest::keyClick(dialog.findChild<QLineEdit *>(), Qt::Key_Return);
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_EQ(dialog.Percent(), 250);
}
