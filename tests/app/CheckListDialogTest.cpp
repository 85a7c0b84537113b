// SPDX-License-Identifier: MIT
// Tests the dialog of check boxes as a user operates it.
#include "CListFltrDlg.h"
#include "CListGrid.h"
#include "Settings.h"
#include "TempFolder.h"

#include <QHeaderView>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

namespace
{

/// Has three rows, and records its calls.
struct FakeHelper : IListFltrHelper
{
    bool InitList(CheckList &list) override
    {
        list.columns = {{u"Name"_s, 120}, {u"ID"_s, 120}};
        list.rows = {{{u"B"_s, u"2"_s}, 2, false}, {{u"A"_s, u"10"_s}, 10, true}, {{u"C"_s, u"1"_s}, 1, false}};
        return true;
    }
    bool Apply(CheckList &list) override
    {
        for (const CheckList::Row &row : list.rows)
            told += row.texts[0] + (row.checked ? u'+' : u'-');
        return mayClose;
    }
    void OnCheck(qint32 data, bool checked) override { told += QString::number(data) + (checked ? u"+ "_s : u"- "_s); }
    int Compare(qint32 a, qint32 b, int column) const override { return column == 1 ? a - b : (b % 10) - (a % 10); }

    QString told;
    bool mayClose = false;
};

struct OpenDialog
{
    OpenDialog()
    {
        dialog.show();
        QApplication::setActiveWindow(&dialog);
        EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog));
    }
    void Click(int row, int col, int x) const
    {
        const QRect cell = grid.visualRect(grid.model()->index(row, col));
        QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, QPoint(cell.left() + x, cell.center().y()));
    }
    void ClickHeader(int col) const
    {
        const QHeaderView &header = *grid.horizontalHeader();
        QTest::mouseClick(header.viewport(), Qt::LeftButton, {}, QPoint(header.sectionPosition(col) + 20, 8));
    }
    QString Take() { return std::exchange(helper.told, {}); }

    TempFolder folder;
    int prepared = (folder.Put("a.ini", "[wnd_1002]\n0=130\nsort=-2\n"), 0);
    Settings settings{folder.Path("a.ini"), folder.Path("user/a.ini")};
    FakeHelper helper;
    CListFltrDlg dialog{helper, settings};
    CListGrid &grid = *dialog.findChild<CListGrid *>();
    QList<QPushButton *> buttons = dialog.findChildren<QPushButton *>();
};

} // namespace

TEST(CheckListDialog, ReportsOnlyCheckChangesByKeysMouseAndButtons)
{
    OpenDialog open;
    EXPECT_EQ(open.grid.Widths(), (std::vector<int>{130, 150}));
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Down, Qt::Key_Right, Qt::Key_Space}) // first A, then B
        QTest::keyClick(open.dialog.focusWidget(), key);
    EXPECT_EQ(open.Take(), u"10- 2+ "_s) << "stored as sorted by number, the last first";
    open.Click(2, 0, 60);
    open.Click(0, 1, 10);
    EXPECT_EQ(open.Take(), QString());
    for (int i = 0; i < 3; ++i)
        open.Click(2, 0, 10);
    EXPECT_EQ(open.Take(), u"1+ 1- 1+ "_s);
    open.buttons[1]->click(); // Clear All
    EXPECT_EQ(open.Take(), u"1- 2- "_s);
    open.buttons[0]->click(); // Select All
    EXPECT_EQ(open.Take(), u"1+ 2+ 10+ "_s) << "from the last row to the first";
    QTest::keyClick(&open.grid, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&open.grid, Qt::Key_Space);
    EXPECT_EQ(open.Take().size(), 10) << "all that are selected";
}

TEST(CheckListDialog, AppliesRowsInTheShownOrderAndStoresItsStateOnClosing)
{
    OpenDialog open;
    open.Click(0, 0, 60); // A, which stays selected
    open.ClickHeader(0);
    QTest::keyClick(&open.grid, Qt::Key_Return);
    EXPECT_EQ(open.Take(), u"B-C-A+"_s);
    EXPECT_TRUE(open.dialog.isVisible()) << "not applied";
    EXPECT_EQ(open.grid.SelectedRows(), std::vector<int>{2});
    open.ClickHeader(0);
    open.grid.setColumnWidth(1, 0);
    open.helper.mayClose = true;
    QTest::keyClick(&open.grid, Qt::Key_Return);
    EXPECT_EQ(open.Take(), u"A+C-B-"_s);
    EXPECT_EQ(open.dialog.result(), QDialog::Accepted);
    EXPECT_EQ(open.folder.Get("a.ini"), "[wnd_1002]\n0=130\nsort=-1\n1=0\n");

    OpenDialog other;
    other.ClickHeader(1);
    QTest::keyClick(&other.grid, Qt::Key_Escape);
    EXPECT_EQ(other.Take(), QString()) << "the helper isn't asked";
    EXPECT_TRUE(other.folder.Get("a.ini").contains("sort=2")) << "stored nevertheless";
}
