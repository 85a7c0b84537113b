// SPDX-License-Identifier: MIT
#include "FindingsPane.h"
#include "CLayoutRes.h"
#include "CLotCplistView.h"
#include "FileGrid.h"
#include "FindBar.h"
#include "FindingCountsButton.h"
#include "FindingsBar.h"
#include "LayoutPanes.h"
#include "StringWindow.h"

#include <QClipboard>
#include <QLineEdit>
#include <QStatusBar>
#include <QTabBar>

namespace
{

const QByteArray FAULTY = "Number of Language|2\nString ID|Resource Type|Description|English(9)|French(12)\n"
                          "ID_C|Normal|c|%d seas|%s mers\nID_A|Normal|a|Two|\nID_B|Normal|b|Ten|Dix\n##number|3\n";

/// A window with a project that has faults in strings, an image of two screens, and a layout.
struct FaultyWindow : StringWindow
{
    explicit FaultyWindow(bool hasSettings = true) : StringWindow(FAULTY, WITH_LAYOUTS + "catalogue=catalogue.xml\n")
    {
        app.reset();
        folder.Put("bin/catalogue.xml", "<catalogue version=\"1\"><class name=\"Base\"/>"
                                        "<class name=\"Panel\" base=\"Base\"/></catalogue>");
        MakeProject("demo", "<APP>\n<RESOLUTION width=\"176\" height=\"220\" class=\"image\">\n"
                            "<IMAGE id=\"ID_I\" type=\"Normal\">a.png</IMAGE>\n</RESOLUTION>\n"
                            "<RESOLUTION width=\"320\" height=\"240\" class=\"image\">\n"
                            "<IMAGE id=\"ID_I\" type=\"Normal\">b.png</IMAGE>\n</RESOLUTION>\n"
                            "<RESOLUTION width=\"240\" height=\"320\" class=\"layout\">\n"
                            "<LAYOUT>res\\l.xml</LAYOUT></RESOLUTION>\n"
                            "<STRING>res\\ref_list_demo.txt</STRING></APP>");
        folder.Put("demo/res/l.xml", "<TarvoXML>\n<Layout id=\"ID_L\">\n<Panel name=\"outer\">\n"
                                     "<Panel name=\"inner\" colour=\"1\"/>\n</Panel>\n</Layout>\n</TarvoXML>\n");
        if (hasSettings) // only these rules, so that the tests know the number of findings
            folder.Put("demo/morvanite-check.ini",
                       "[Severity]\nno-such-rule=off\nlists-unsaved=off\nheader-stale=off\nlanguage-unknown=off\n"
                       "image-resolution-missing=off\nid-unused=off\nsame-as-source=off\nimage-same-everywhere=off\n");
        Open();
    }

    [[nodiscard]] FindingsPane &Pane() const { return Frame().Bars().Findings(); }
    [[nodiscard]] QTabBar &Tabs() const { return *Frame().Bars().OutputBar().findChild<QTabBar *>(); }
    [[nodiscard]] std::string Told() const { return Frame().statusBar()->currentMessage().toStdString(); }
    [[nodiscard]] bool IsChecked() const { return !Child().Check().IsRunning() && Pane().List().RowCount() > 0; }
    void ShowFindings() const
    {
        Frame().RunAction(ACTION_FINDINGS);
        ASSERT_TRUE(WaitFor([this] { return IsChecked(); }));
    }
    [[nodiscard]] int RowOf(const QString &rule, const QString &place = {}) const
    {
        for (int row = 0; row < Pane().List().RowCount(); ++row) {
            const FindingList &list = Pane().List();
            if (list.CellText(row, FindingList::RULE_COLUMN) == rule &&
                list.CellText(row, FindingList::PLACE_COLUMN).endsWith(place))
                return row;
        }
        ADD_FAILURE() << "no finding of " << rule.toStdString() << " in " << place.toStdString();
        return 0;
    }
    void Enter(int row) const
    {
        Pane().Select(row);
        Pane().Grid().setFocus();
        Key(Qt::Key_Return);
        Settle();
    }
    /// Returns the cell with the focus in the strings, as "ID|column".
    [[nodiscard]] std::string Focused() const
    {
        const QModelIndex cell = Grid().currentIndex();
        return Grid().hasFocus() ? Shown(cell.row(), 0) + '|' + std::to_string(cell.column()) : std::string();
    }
};

} // namespace

TEST(FindingsPane, IsOffUntilAskedForAndRemembered)
{
    FaultyWindow window(false);
    const auto isChecked = [&] { return window.Frame().StateOf(ACTION_OUTPUT)->checked; };
    EXPECT_TRUE(!window.Tabs().isVisible() && !window.Child().Check().IsOn() && isChecked());
    EXPECT_FALSE(window.Frame().Findings().Counts().isVisible());
    window.ShowFindings();
    EXPECT_TRUE(window.Pane().isVisible() && window.Tabs().isVisible() && isChecked());
    EXPECT_TRUE(window.Frame().Findings().StateOf(ACTION_FINDINGS)->checked);

    window.Frame().RunAction(ACTION_OUTPUT); // hides the bar, whichever page it shows
    EXPECT_TRUE(window.Frame().Bars().OutputBar().isHidden() && window.Child().Check().IsOn());
    window.Frame().RunAction(ACTION_OUTPUT);
    EXPECT_TRUE(window.Frame().Bars().Output().isVisible() && window.Tabs().isVisible());
    window.Pane().Grid().setColumnWidth(FindingList::TEXT_COLUMN, 321);

    window.Frame().close();
    window.Open();
    EXPECT_TRUE(window.Tabs().isVisible() && window.Child().Check().IsOn());
    EXPECT_TRUE(window.Frame().Bars().Output().isVisible()) << "what the opening told is read first";
    EXPECT_EQ(window.Pane().Grid().columnWidth(FindingList::TEXT_COLUMN), 321);
    window.Tabs().setCurrentIndex(1);
    window.Pane().setFocus();
    window.Frame().RunAction(ACTION_FINDINGS);
    EXPECT_TRUE(!window.Tabs().isVisible() && !window.Child().Check().IsOn());
    EXPECT_EQ(QApplication::focusWidget(), &window.Frame().Bars().Output());
    window.Settle();
    EXPECT_FALSE(window.Frame().Findings().Counts().isVisible());
}

TEST(FindingsPane, TheReasonOfAFailureIsInTheBoxWhileTheFindingsHideTheOutput)
{
    FaultyWindow window;
    window.Frame().Bars().BeginOutput();
    window.Frame().Bars().WriteOutput(u"the reason\r\n");
    EXPECT_EQ(window.Frame().Bars().UnseenOutput(), QString());
    window.ShowFindings();
    window.Frame().Bars().BeginOutput();
    window.Frame().Bars().WriteOutput(u"the reason\r\n");
    EXPECT_EQ(window.Frame().Bars().UnseenOutput(), u"the reason\n"_s);
    EXPECT_TRUE(window.OutputText().ends_with("the reason\nthe reason\n")) << "the output has it, too";
}

TEST(FindingsPane, EnterGoesToCellsFilesAndComponents)
{
    FaultyWindow window;
    window.ShowFindings();
    window.Frame().RunAction(ACTION_FIND_BAR);
    window.Type(u"Dix"_s); // hides the row of the finding
    window.Grid().HideColumn(4, true);
    window.Enter(window.RowOf(u"placeholder-mismatch"_s));
    EXPECT_EQ(window.Focused(), "ID_C|4");
    EXPECT_GT(window.Grid().columnWidth(4), 0);
    EXPECT_EQ(window.Told(), "1 of 6, error: ID_C, French: " +
                                 window.Pane().List().CellText(0, FindingList::TEXT_COLUMN).toStdString());

    for (const auto &[place, screen] :
         {std::pair(u"demo.res.xml:3"_s, u"176x220"_s), {u"demo.res.xml:6"_s, u"320x240"_s}}) {
        window.Enter(window.RowOf(u"file-missing"_s, place));
        auto &list = TestWindow::Find<CListGrid>(*window.Child().Panes()[1]);
        EXPECT_TRUE(list.hasFocus() && list.currentIndex().data().toString() == u"ID_I"_s);
        EXPECT_EQ(window.Selected()->title, screen);
    }

    window.Enter(window.RowOf(u"layout-property"_s));
    auto &panes = TestWindow::Find<LayoutPanes>(window.Child());
    ASSERT_NE(panes.List().Selected(), nullptr);
    EXPECT_EQ(panes.List().Selected()->propName, "inner");

    const CResFolder *const before = window.Selected();
    window.Enter(window.RowOf(u"check-settings"_s));
    EXPECT_EQ(window.Selected(), before);
    EXPECT_TRUE(window.Told().ends_with("(morvanite-check.ini:2)")) << window.Told();
}

TEST(FindingsPane, F8StepsFromTheFocusAndBeginsAgain)
{
    FaultyWindow window;
    window.Child().Check().Stop();
    window.Grid().SelectAlone(2, 0); // ID_C
    window.Key(Qt::Key_F8);          // starts the check
    EXPECT_EQ(window.Told(), "Checking\u2026");
    EXPECT_TRUE(TestWindow::WaitFor([&] { return window.Focused() == "ID_C|4"; })) << window.Told();
    window.Key(Qt::Key_F8);
    EXPECT_EQ(window.Focused(), "ID_A|4");
    EXPECT_TRUE(window.Told().starts_with("2 of 6, warning: ID_A, French")) << window.Told();
    window.Key(Qt::Key_F8, Qt::ShiftModifier);
    window.Key(Qt::Key_F8, Qt::ShiftModifier);
    EXPECT_TRUE(window.Told().starts_with("6 of 6, ")) << window.Told();
    window.Child().Selected().SelectFolder(window.Strings());
    window.Settle();

    window.Grid().SelectAlone(2, 4); // the user moves on by himself
    window.Grid().setFocus();
    window.Key(Qt::Key_F8);
    EXPECT_EQ(window.Focused(), "ID_A|4");
    window.Edit(0, 4); // corrects it, and steps on with the editor open
    window.Type(u"Deux"_s);
    window.Key(Qt::Key_F8);
    EXPECT_EQ(window.Shown(0, 4), "Deux");
    EXPECT_TRUE(TestWindow::WaitFor([&] { return window.Pane().List().RowCount() == 5; }));
}

TEST(FindingsPane, F8GoesNowhereBelowABoxOrToADestroyedResource)
{
    FaultyWindow window;
    window.Child().Check().Stop();
    window.Grid().SelectAlone(1, 0);
    window.Key(Qt::Key_F8); // its step waits for the check
    QMessageBox box(&window.Frame());
    box.open();
    EXPECT_TRUE(TestWindow::WaitFor([&] { return window.IsChecked(); }));
    window.Settle();
    box.close();
    window.Settle();
    EXPECT_EQ(window.Shown(window.Grid().currentIndex().row(), 0), "ID_B");

    window.ShowFindings();
    const int row = window.RowOf(u"translation-missing"_s);
    window.Child().Check().Stop(); // so that the list keeps the finding
    window.Document().ClearByKind(*window.Strings());
    window.Pane().Select(row);
    window.Frame().Findings().Run(ACTION_GO_TO_FINDING);
    EXPECT_TRUE(window.Told().ends_with("the project has no resource ID_A")) << window.Told();
}

TEST(FindingsPane, KeepsTheSelectionWhileTheFindingsChange)
{
    FaultyWindow window;
    window.ShowFindings();
    window.Pane().Select(window.RowOf(u"file-missing"_s, u":6"_s));
    window.Put(2, 4, u"%d mers"_s);
    EXPECT_TRUE(TestWindow::WaitFor([&] { return window.Pane().List().RowCount() == 5; }));
    EXPECT_EQ(window.Pane().Current(), window.RowOf(u"file-missing"_s, u":6"_s));
    EXPECT_EQ(window.Pane().Grid().SelectedRows(), std::vector<int>{window.Pane().Current()});

    window.Pane().Grid().setFocus();
    window.Key(Qt::Key_A, Qt::ControlModifier);
    window.Key(Qt::Key_C, Qt::ControlModifier);
    const QString copied = QApplication::clipboard()->text();
    EXPECT_EQ(copied.count(u'\n'), 5);
    EXPECT_TRUE(copied.startsWith(u"res/ref_list_demo.txt:4:19: warning: ID_A, French: "_s)) << copied.toStdString();

    auto *const text = window.Pane().findChild<QLineEdit *>();
    text->setText(u"nothing like this"_s);
    EXPECT_EQ(window.Pane().List().RowCount(), 0);
    window.Frame().RunAction(ACTION_NEXT_FINDING);
    EXPECT_EQ(window.Told(), "The filter hides all 5 findings.");
    window.Frame().RunAction(ACTION_FINDINGS);
    window.ShowFindings();
    EXPECT_EQ(window.Pane().List().RowCount(), 5) << "the filter ends with the pane";
}

TEST(FindingsPane, TheStatusBarCountsWithLittleRoomFewer)
{
    FaultyWindow window;
    window.Frame().resize(1100, 600);
    window.ShowFindings();
    window.Settle();
    FindingCountsButton &counts = window.Frame().Findings().Counts();
    EXPECT_TRUE(counts.isVisible());
    EXPECT_EQ(counts.text(), u"5 errors, 1 warning"_s);
    auto &bar = TestWindow::Find<FindingsBar>(window.Pane());
    const auto isWord = [&bar] {
        const auto buttons = bar.findChildren<QAbstractButton *>();
        return std::any_of(buttons.begin(), buttons.end(), [](auto *button) { return button->text() == u"5 errors"; });
    };
    window.Frame().addDockWidget(Qt::BottomDockWidgetArea, &window.Frame().Bars().OutputBar());
    window.Settle();
    EXPECT_TRUE(isWord());
    QFont large = bar.font();
    large.setPixelSize(90);
    bar.setFont(large);
    EXPECT_FALSE(isWord()) << "the pane has room for the number only";
    window.Frame().resize(500, 600);
    window.Settle();
    EXPECT_EQ(counts.text(), u"5 errors"_s);
    EXPECT_EQ(counts.accessibleName(), u"Findings: 5 errors, 1 warning"_s);
    window.Frame().RunAction(ACTION_OUTPUT);
    QTest::mouseClick(&counts, Qt::LeftButton);
    EXPECT_TRUE(window.Pane().isVisible() && window.Pane().Grid().hasFocus());
    window.Frame().RunAction(ACTION_CLOSE);
    window.Settle();
    EXPECT_TRUE(!counts.isVisible() && window.Pane().List().RowCount() == 0);
}
