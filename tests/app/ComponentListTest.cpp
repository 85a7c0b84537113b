// SPDX-License-Identifier: MIT
#include "CLayoutRes.h"
#include "CLotCplistView.h"
#include "CLotEditorView.h"
#include "CLotScreenView.h"
#include "LayoutPanes.h"
#include "LinedTree.h"
#include "TestWindow.h"
#include "ToolboxList.h"

#include <QLineEdit>

namespace
{

const QString START = u"Label: cp02*\n.Base!\n..Unknown!: deep\nButton: cp01\n"_s;

/// A window with a project of two layouts, opened at the first.
struct ComponentWindow : TestWindow
{
    ComponentWindow()
        : TestWindow(WITH_LAYOUTS + "catalogue=catalogue.xml\n[split2nd]\nheight=150\n[split3rd]\nwidth=170\n")
    {
        folder.Put("bin/catalogue.xml", "<catalogue version=\"1\"><class name=\"Base\" excluded=\"true\"/>"
                                        "<class name=\"Label\" base=\"Base\"/><class name=\"Button\"/></catalogue>");
        MakeProject("demo", "<APP>" + LAYOUT_LIST + "</APP>");
        PutLayouts("<Label name=\"cp02\"><Base><Unknown name=\"deep\"/></Base></Label><Button name=\"cp01\"/>");
        Start({Project()});
        Frame().resize(1000, 700);
        Go(u"ID_ONE"_s);
    }
    void PutLayouts(const QByteArray &components) const
    {
        folder.Put("demo/res/l.xml",
                   "<TarvoXML><Layout id=\"ID_ONE\">" + components + "</Layout><Layout id=\"ID_TWO\"/></TarvoXML>");
    }
    void Go(const QString &folderLabel) const
    {
        Tree().setCurrentItem(Row(folderLabel));
        Settle();
    }
    [[nodiscard]] LayoutPanes &Panes() const { return Find<LayoutPanes>(Child()); }
    [[nodiscard]] LinedTree &List() const { return Find<LinedTree>(Panes().List()); }
    [[nodiscard]] ToolboxList &Toolbox() const { return Frame().Bars().Classes(); }
    [[nodiscard]] bool IsToolboxShown() const { return Frame().Bars().IsToolboxShown(); }
    void Add(const char *type) const { Panes().AddComponent(*Document().classes->Find(type)); }

    /// Returns the list as text: a line for each row, a point for each level of nesting, "*" at the selected component,
    /// which must be selected in the preview and the grid too.
    [[nodiscard]] QString Shown() const
    {
        QString rows;
        const CZulClass *current = nullptr;
        for (QTreeWidgetItemIterator row(&List()); *row; ++row) {
            for (const QTreeWidgetItem *above = (*row)->parent(); above; above = above->parent())
                rows += above->isExpanded() ? u'.' : u'?';
            if (*row == List().currentItem())
                current = static_cast<const CZulClass *>((*row)->data(0, Qt::UserRole).value<void *>());
            rows += (*row)->text(0) + (*row == List().currentItem() ? u"*\n"_s : u"\n"_s);
        }
        EXPECT_TRUE(Panes().List().Selected() == current && Panes().Preview().Selected() == current &&
                    Panes().Grid().Current() == current);
        return rows;
    }
};

} // namespace

TEST(ComponentList, SelectsAddsAndDeletesComponents)
{
    ComponentWindow window;
    EXPECT_EQ(window.Shown(), START);
    window.DoubleClick(*window.Toolbox().viewport(),
                       window.Toolbox().visualItemRect(window.Toolbox().item(1)).center());
    window.DoubleClick(*window.Toolbox().viewport(), window.Toolbox().viewport()->rect().bottomLeft()); // not on a row
    EXPECT_EQ(window.Shown(), u"Label: cp02\n.Base!\n..Unknown!: deep\nButton: cp01\nButton: cp03*\n"_s);
    QTest::mouseClick(window.List().viewport(), Qt::LeftButton, {},
                      window.List().visualItemRect(window.List().topLevelItem(0)->child(0)->child(0)).center());
    QTest::mouseClick(window.List().viewport(), Qt::LeftButton, {}, window.List().viewport()->rect().bottomLeft());
    window.Answer({QMessageBox::No, QMessageBox::Yes, QMessageBox::Yes, QMessageBox::Yes, QMessageBox::Yes});
    for (const char *const left : {"Label: cp02\n.Base!\n..Unknown!: deep*\nButton: cp01\nButton: cp03\n",
                                   "Label: cp02*\n.Base!\nButton: cp01\nButton: cp03\n",
                                   "Button: cp01*\nButton: cp03\n", "Button: cp03*\n", ""}) {
        window.Activate();
        QTest::keyClick(&window.List(), Qt::Key_Delete);
        EXPECT_EQ(window.Shown(), QString::fromLatin1(left));
    }
    EXPECT_EQ(window.boxes[0], u"The selected component and all of its sub-components will be deleted. Continue?"_s);
    EXPECT_FALSE(window.Frame().IsEnabled(ACTION_DELETE));
    window.Go(u"ID_TWO"_s);
    window.Toolbox().setCurrentRow(0);
    QTest::keyClick(&window.Toolbox(), Qt::Key_Enter);
    EXPECT_EQ(window.Shown(), u"Label: cp04*\n"_s);
    auto &grid = TestWindow::Find<CListGrid>(window.Panes().Grid());
    grid.SelectAlone(0, 0);
    QTest::keyClicks(&grid, u"typed"_s);
    window.Frame().RunAction(ACTION_SAVE);
    const QByteArray saved = window.folder.Get("demo/res/l.xml");
    EXPECT_TRUE(saved.contains("<Layout id=\"ID_ONE\" />") && saved.contains("name=\"typed\"")) << saved.toStdString();
}

/// Everything that destroys the components of a layout, or changes them while another pane is shown.
TEST(ComponentList, ForgetsDestroyedComponentsAndShowsNewOnes)
{
    ComponentWindow window;
    for (const auto &[components, shown] :
         {std::pair(QByteArray("<Button name=\"other\"/>"), u"Button: other*\n"_s),
          {"<Label>" + QByteArray("<Button/>").repeated(5000) + "</Label>",
           u"Label*\n"_s + u".Button\n"_s.repeated(5000)},
          {"<Label name=\"a&#10;" + QByteArray(30'000, 'x') + "\"/>",
           u"Label: a\u21B5"_s + QString(291, u'x') + u"\u2026*\n"_s},
          {"<Button name=\"a\"><Label name=\"l\"/></Button>", u"Button: a*\n.Label: l\n"_s}}) {
        window.Go(u"Layouts"_s);
        window.PutLayouts(components); // while the panes are hidden
        EXPECT_EQ(window.Document().TakeInChanges(), CResDoc::Outside::TakenIn);
        window.Go(u"ID_ONE"_s);
        EXPECT_EQ(window.Shown(), shown);
        window.PutLayouts(components + "<Base/>");
        EXPECT_EQ(window.Document().TakeInChanges(), CResDoc::Outside::TakenIn);
        EXPECT_EQ(window.Shown(), shown + u"Base!\n"_s);
    }
    window.Document().ClearFolder(*window.Document().root.FindFolder(KIND_FILES, 1));
    EXPECT_EQ(window.Shown(), u"Button: a*\n.Label: l\nBase!\n"_s) << "the cleared folder has no layout";
    auto &grid = TestWindow::Find<CListGrid>(window.Panes().Grid());
    for (int round = 1; round <= 300; ++round) {
        grid.SelectAlone(0, 0);
        QTest::keyClicks(&grid, u"dropped"_s);
        ASSERT_FALSE(grid.viewport()->findChild<QLineEdit *>()->isHidden()) << "the editor of the name";
        WhenOpen<QMessageBox>(window, [](QMessageBox &box) { box.button(QMessageBox::Yes)->click(); });
        window.Panes().List().Run(ACTION_DELETE);
        window.Add("Label");
        ASSERT_TRUE(window.Shown().endsWith(u": cp%1*\n"_s.arg(round, 2, 16, QChar(u'0')))) << round;
    }
    window.Answer({QMessageBox::Yes});
    window.Activate();
    window.Tree().setFocus();
    QTest::keyClick(&window.Tree(), Qt::Key_Delete); // deletes the layout that is shown
    window.Settle();
    window.Go(u"ID_TWO"_s);
    window.Add("Label");
    window.Document().ClearByKind(window.Document().root);
    window.Add("Label"); // there is no layout to add it to
    EXPECT_EQ(window.Shown(), QString());
}

TEST(ComponentList, RestoresSplittersAndToolboxForTheActiveProject)
{
    ComponentWindow window;
    const QList<QSplitter *> splitters = window.Panes().findChildren<QSplitter *>();
    EXPECT_TRUE(splitters[0]->sizes()[0] == 150 && splitters[1]->sizes()[0] == 170);
    window.Activate();
    window.Tree().setFocus();
    for (QWidget *pane : window.Panes().Parts() + QList<QWidget *>{&window.Toolbox()}) {
        window.Frame().RunAction(ACTION_NEXT_PANE);
        EXPECT_TRUE(QApplication::focusWidget() == pane || pane->isAncestorOf(QApplication::focusWidget()));
    }
    window.MakeProject("plain", "<APP/>");
    window.MakeProject("rich", "<APP>" + TestWindow::LAYOUT_LIST + "</APP>");
    window.folder.Put("rich/res/l.xml", "<TarvoXML><Layout id=\"ID_ONE\"/></TarvoXML>");
    window.folder.Put("rich/morvanite.ini", "[Layout]\nfolders=1\ncatalogue=rich.xml\n");
    window.folder.Put("bin/rich.xml", "<catalogue version=\"1\"><class name=\"Dial\"/></catalogue>");
    (void)window.app->Documents().OpenDocumentFile(window.Project("rich"));
    window.Go(u"ID_ONE"_s);
    EXPECT_TRUE(window.IsToolboxShown() && window.Toolbox().item(0)->text() == u"Dial"_s);
    window.Child().close();
    window.folder.Put("rich/morvanite.ini", "[Layout]\nfolders=1\ncatalogue=\n");
    (void)window.app->Documents().OpenDocumentFile(window.Project("rich"));
    window.Go(u"ID_ONE"_s);
    EXPECT_TRUE(window.IsToolboxShown() && window.Toolbox().count() == 0) << "no catalogue";
    window.Child().close();
    (void)window.app->Documents().OpenDocumentFile(window.Project("plain"));
    window.Settle();
    EXPECT_FALSE(window.IsToolboxShown() || window.Frame().IsEnabled(ACTION_TOOLBOX));
    (void)window.app->Documents().OpenDocumentFile(window.Project());
    window.Settle();
    window.Child().showMinimized(); // no layout is active then
    window.Settle();
    EXPECT_TRUE(window.IsToolboxShown() && window.Toolbox().item(0)->text() == u"Label"_s);
    window.Child().showMaximized();
    window.Frame().Bars().ToolboxBar().close(); // like its close button
    window.Go(u"Layouts"_s);
    window.Go(u"ID_ONE"_s);
    EXPECT_FALSE(window.IsToolboxShown());
    for (const bool isShown : {true, false}) {
        window.Frame().RunAction(ACTION_TOOLBOX);
        EXPECT_EQ(window.IsToolboxShown(), isShown);
    }
    splitters[0]->handle(1)->setFocus();
    QTest::keyClick(splitters[0]->handle(1), Qt::Key_Down);
    window.Frame().close();
    const QByteArray stored = window.folder.Get("bin/Morvanite.ini");
    EXPECT_TRUE(stored.contains("height=166") && stored.contains("width=170") && stored.contains("show=0"));
}
