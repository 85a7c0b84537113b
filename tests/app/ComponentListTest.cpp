#include "CLayoutRes.h"
#include "CLotCplistView.h"
#include "CLotEditorView.h"
#include "CLotScreenView.h"
#include "LayoutPanes.h"
#include "LinedTree.h"
#include "StringWindow.h"
#include "ToolboxList.h"

namespace
{

/// A window with a project of two layouts, opened at the first.
struct ComponentWindow : TestWindow
{
    ComponentWindow()
    {
        folder.Put("bin/Morvanite.ini", "[Path]\nreso_set=sizes.ini\n[Layout]\nfolders=1\ncatalogue=catalogue.xml\n"
                                        "[split2nd]\nheight=150\n[split3rd]\nwidth=170\n");
        folder.Put("bin/catalogue.xml", "<catalogue version=\"1\"><class name=\"Base\" excluded=\"true\"/>"
                                        "<structure name=\"Insets\"/><class name=\"Label\" base=\"Base\"/>"
                                        "<class name=\"Button\"/></catalogue>");
        MakeProject("demo", RESOURCES);
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

    [[nodiscard]] LayoutPanes &Panes() const { return StringWindow::Find<LayoutPanes>(Child()); }
    [[nodiscard]] LinedTree &List() const { return StringWindow::Find<LinedTree>(Panes().List()); }
    [[nodiscard]] FrameBars &Bars() const { return Frame().Bars(); }
    [[nodiscard]] QString Offered() const
    {
        QStringList rows;
        for (const QListWidgetItem *row : Bars().Classes().findItems(u"*"_s, Qt::MatchWildcard))
            rows << row->text();
        return rows.join(u' ');
    }
    void DoubleClick(const QPoint &place) const
    {
        QWidget *const box = Bars().Classes().viewport();
        QTest::mouseClick(box, Qt::LeftButton, {}, place);
        QTest::mouseDClick(box, Qt::LeftButton, {}, place);
        QTest::mouseRelease(box, Qt::LeftButton, {}, place); // which no function of QTest adds
    }
    void Add(int offered) const
    {
        DoubleClick(Bars().Classes().visualItemRect(Bars().Classes().item(offered)).center());
    }
    /// What the list shows: a row for a line, a point for each component that one is in, "*" at the selected one, which
    /// preview and grid must have as well.
    [[nodiscard]] QString Shown() const
    {
        QString rows;
        const CZulClass *current = nullptr;
        for (QTreeWidgetItemIterator row(&List()); *row; ++row) {
            for (const QTreeWidgetItem *above = (*row)->parent(); above; above = above->parent()) {
                EXPECT_TRUE(above->isExpanded());
                rows += u'.';
            }
            if (*row == List().currentItem())
                current = static_cast<const CZulClass *>((*row)->data(0, Qt::UserRole).value<void *>());
            rows += (*row)->text(0) + (*row == List().currentItem() ? u"*\n"_s : u"\n"_s);
        }
        EXPECT_TRUE(Panes().List().Selected() == current && Panes().Preview().Selected() == current &&
                    Panes().Grid().Current() == current);
        return rows;
    }

    static inline const QByteArray RESOURCES = "<APP><RESOLUTION width=\"240\" height=\"320\" class=\"layout\">"
                                               "<LAYOUT>res\\l.xml</LAYOUT></RESOLUTION></APP>";
};

} // namespace

TEST(ComponentList, ComponentsAreSelectedAddedAndDeleted)
{
    ComponentWindow window;
    EXPECT_EQ(window.Shown(), u"Label: cp02*\n.Base!\n..Unknown!: deep\nButton: cp01\n"_s);
    EXPECT_EQ(window.Offered(), u"Label Button"_s);
    window.Add(1);
    window.DoubleClick(window.Bars().Classes().viewport()->rect().bottomLeft());
    EXPECT_EQ(window.Shown(), u"Label: cp02\n.Base!\n..Unknown!: deep\nButton: cp01\nButton: cp03*\n"_s);
    EXPECT_TRUE(window.Document().IsModified());

    window.Panes().Preview().picked(*window.Panes().List().Selected()); // nothing new
    QTest::mouseClick(window.List().viewport(), Qt::LeftButton, {},
                      window.List().visualItemRect(window.List().topLevelItem(0)->child(0)->child(0)).center());
    EXPECT_EQ(window.Shown(), u"Label: cp02\n.Base!\n..Unknown!: deep*\nButton: cp01\nButton: cp03\n"_s);
    QTest::mouseClick(window.List().viewport(), Qt::LeftButton, {}, window.List().viewport()->rect().bottomLeft());
    QTest::keyClick(&window.List(), Qt::Key_Up);
    EXPECT_EQ(window.Shown(), u"Label: cp02\n.Base!*\n..Unknown!: deep\nButton: cp01\nButton: cp03\n"_s);

    window.Answer({QMessageBox::No, QMessageBox::Yes, QMessageBox::Yes, QMessageBox::Yes, QMessageBox::Yes});
    for (const char *const left :
         {"Label: cp02\n.Base!*\n..Unknown!: deep\nButton: cp01\nButton: cp03\n",
          "Label: cp02*\nButton: cp01\nButton: cp03\n", "Button: cp01*\nButton: cp03\n", "Button: cp03*\n", ""}) {
        window.Activate();
        QTest::keyClick(&window.List(), Qt::Key_Delete);
        EXPECT_EQ(window.Shown(), QString::fromLatin1(left));
    }
    EXPECT_EQ(window.boxes.last(),
              u"The selected component and all of its sub-components will be deleted. Continue?"_s);
    EXPECT_FALSE(window.Frame().IsEnabled(ACTION_DELETE));
    window.Go(u"ID_TWO"_s);
    window.Bars().Classes().setCurrentRow(0);
    QTest::keyClick(&window.Bars().Classes(), Qt::Key_Enter);
    EXPECT_EQ(window.Shown(), u"Label: cp04*\n"_s);
    window.Frame().RunAction(ACTION_SAVE);
    EXPECT_TRUE(window.folder.Get("demo/res/l.xml").contains("<Layout id=\"ID_ONE\" />"));
}

/// Whatever destroys the components of a layout or changes them while another pane is shown.
TEST(ComponentList, LetsGoOfWhatIsDestroyedAndTakesUpWhatComes)
{
    ComponentWindow window;
    const QString start = window.Shown();
    window.Go(u"Layouts"_s);
    window.PutLayouts("<Button name=\"other\"/>");
    EXPECT_EQ(window.Document().TakeInChanges(), CResDoc::Outside::TakenIn);
    window.Go(u"ID_ONE"_s);
    EXPECT_EQ(window.Shown(), u"Button: other*\n"_s);
    window.PutLayouts("<Button name=\"another\"><Label name=\"l\"/></Button>");
    EXPECT_EQ(window.Document().TakeInChanges(), CResDoc::Outside::TakenIn);
    EXPECT_EQ(window.Shown(), u"Button: another*\n.Label: l\n"_s);
    window.Document().ClearFolder(*window.Document().root.FindFolder(KIND_FILES, 1)); // none of its own
    EXPECT_EQ(window.Shown(), u"Button: another*\n.Label: l\n"_s);

    window.Activate();
    window.List().setFocus();
    for (int round = 0; round < 1000; ++round) {
        window.Panes().List().Run(ACTION_NONE);
        QTimer::singleShot(0, [&] {
            if (auto *const box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget()))
                box->button(QMessageBox::Yes)->click();
        });
        window.Panes().List().Run(ACTION_DELETE);
        window.Panes().AddComponent(*window.Document().classes->Find("Label"));
        if (round % 100 == 0) {
            EXPECT_EQ(window.Shown(), u"Label: cp%1*\n"_s.arg(round + 1, 2, 16, QChar(u'0')));
        }
    }

    window.Answer({QMessageBox::Yes, QMessageBox::Yes});
    window.Activate();
    window.Tree().setFocus();
    QTest::keyClick(&window.Tree(), Qt::Key_Delete);
    window.Settle();
    EXPECT_EQ(window.Child().layoutMode, 0);
    window.Go(u"ID_TWO"_s);
    window.Panes().AddComponent(*window.Document().classes->Find("Label"));
    window.Document().ClearByKind(window.Document().root);
    EXPECT_EQ(window.Panes().List().Selected(), nullptr);
    window.Panes().AddComponent(*window.Document().classes->Find("Label")); // to no layout
    EXPECT_FALSE(window.Panes().List().StateOf(ACTION_DELETE)->enabled);
}

TEST(ComponentList, SplittersAndToolboxAreAsTheyWereAndFollowTheActiveProject)
{
    ComponentWindow window;
    const auto sizes = [&] {
        QList<int> both;
        for (QSplitter *splitter : window.Panes().findChildren<QSplitter *>())
            both << splitter->sizes()[0];
        return both;
    };
    EXPECT_EQ(sizes(), (QList{150, 170}));
    EXPECT_EQ(window.List().pos(), QPoint(6, 6));
    const auto isShown = [&] { return !window.Bars().ToolboxBar().isHidden(); };
    EXPECT_TRUE(isShown());
    QList<QWidget *> visited;
    window.Activate();
    window.Tree().setFocus();
    for (int step = 0; step < 5; ++step) {
        window.Frame().RunAction(ACTION_NEXT_PANE);
        visited << QApplication::focusWidget();
    }
    EXPECT_EQ(visited.first(4), (QList<QWidget *>{&window.List(), &window.Panes().Preview(),
                                                  window.Panes().Parts().last(), &window.Bars().Classes()}));

    window.MakeProject("plain", "<APP/>");
    window.MakeProject("rich", ComponentWindow::RESOURCES);
    window.folder.Put("rich/res/l.xml", "<TarvoXML><Layout id=\"ID_ONE\"/></TarvoXML>");
    window.folder.Put("rich/morvanite.ini", "[Layout]\nfolders=1\ncatalogue=rich.xml\n");
    window.folder.Put("bin/rich.xml", "<catalogue version=\"1\"><class name=\"Dial\"/></catalogue>");
    (void)window.app->Documents().OpenDocumentFile(window.Project("rich"));
    window.Go(u"ID_ONE"_s);
    EXPECT_TRUE(isShown() && window.Offered() == u"Dial"_s);
    window.Child().close();
    (void)window.app->Documents().OpenDocumentFile(window.Project("plain"));
    window.Settle();
    EXPECT_FALSE(isShown() || window.Frame().StateOf(ACTION_TOOLBOX)->enabled);
    (void)window.app->Documents().OpenDocumentFile(window.Project());
    window.Settle();
    EXPECT_TRUE(isShown() && window.Offered() == u"Label Button"_s);
    window.Child().showMinimized();
    window.Settle();
    EXPECT_TRUE(isShown()) << "the layout isn't left";
    window.Child().showMaximized();

    window.Bars().ToolboxBar().close(); // as its own button does
    window.Go(u"Layouts"_s);
    window.Go(u"ID_ONE"_s);
    EXPECT_FALSE(isShown());
    for (const bool expected : {true, false}) {
        window.Frame().RunAction(ACTION_TOOLBOX);
        EXPECT_EQ(isShown(), expected);
    }
    window.Panes().findChildren<QSplitter *>()[0]->handle(1)->setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
    window.Frame().close();
    const QByteArray stored = window.folder.Get("bin/Morvanite.ini");
    EXPECT_TRUE(stored.contains("[split2nd]\nheight=166") && stored.contains("[split3rd]\nwidth=170") &&
                stored.contains("show=0"));
}
