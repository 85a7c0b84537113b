// SPDX-License-Identifier: MIT
// Tests the choice of a project's languages from the language table: without a window, and in the dialog of check
// boxes.
#include "CLangFltr.h"
#include "CListFltrDlg.h"
#include "FakeBoxes.h"
#include "Settings.h"
#include "TableProject.h"
#include "TestWindow.h"

#include <QPushButton>

namespace
{

/// A project with English and a language that is not in the language table, and the choice in its initial state.
struct LanguageChoice : TableProject
{
    LanguageChoice(const QByteArray &file = "Number of Language|2\nString ID|Resource Type|Description|English(9)|"
                                            "Old(77)\nID_A|Normal||Hello|x\n##number|1\n")
        : TableProject(file)
    {
        strings.SetObserver(&observer);
        folder.Put("bin/tuvik.ini", "[Language]\nFrench=12\nEnglish=9\nno number\n=5\nDescription=-1\nText10=1\n"
                                    "Text9=2\n");
        Open();
    }
    ~LanguageChoice() { strings.SetObserver(nullptr); }

    void Open()
    {
        list = {};
        EXPECT_TRUE(choice.InitList(list));
        list.onCheck = [this](qint32 number, bool checked) { choice.OnCheck(number, checked); };
    }
    void Turn(std::initializer_list<qint32> numbers)
    {
        for (const qint32 number : numbers) {
            const auto row = std::find_if(list.rows.begin(), list.rows.end(),
                                          [number](const CheckList::Row &each) { return each.data == number; });
            list.SetChecked(size_t(row - list.rows.begin()), !row->checked);
        }
    }
    /// Presses OK. Returns the result, the question, and the language columns afterwards.
    std::string Ok(bool answer = true)
    {
        boxes.asked.clear();
        boxes.answers = {answer};
        const QString result = choice.Apply(list) ? u"closed"_s : u"open"_s;
        return (QStringList{result} + boxes.asked + Columns()).join(u'|').toStdString();
    }
    [[nodiscard]] QStringList Columns() const
    {
        QStringList languages;
        for (int col = StringTable::FIRST_LANGUAGE_COLUMN; col < table.ColumnCount(); ++col)
            languages += table.ColumnLanguage(col)->title;
        return languages;
    }

    CountingObserver observer;
    FakeBoxes boxes;
    CLangFltr choice{table, *this, strings, boxes};
    CheckList list;
};

/// The dialog of the choice.
struct LanguageDialog : LanguageChoice
{
    LanguageDialog() { ShowActive(dialog); }

    /// Returns the languages as the dialog shows them, with "*" after a checked one.
    [[nodiscard]] std::string Rows() const
    {
        QStringList shown;
        for (int row = 0; row < grid.model()->rowCount(); ++row) {
            const QModelIndex cell = grid.model()->index(row, 0);
            shown += cell.data().toString() + (cell.data(Qt::CheckStateRole) == Qt::Checked ? u"*"_s : QString());
        }
        return shown.join(u' ').toStdString();
    }
    void Click(int row, int col, int x) const
    {
        const QRect cell = grid.visualRect(grid.model()->index(row, col));
        TestWindow::Click(*grid.viewport(), {cell.left() + x, cell.center().y()});
    }
    Settings StoredSettings() const
    {
        folder.Put("a.ini", "[wnd_1002]\n0=130\nsort=-2\n");
        return {folder.Path("a.ini"), folder.Path("user/a.ini")};
    }

    Settings settings = StoredSettings();
    CListFltrDlg dialog{choice, settings};
    CListGrid &grid = *dialog.findChild<CListGrid *>();
    QList<QPushButton *> buttons = dialog.findChildren<QPushButton *>();
};

} // namespace

TEST(LanguageChoice, AsksWithTheCountsOfChangesAndChangesNothingBeforeTheAnswer)
{
    LanguageChoice project;
    EXPECT_EQ(project.Ok(), "closed|English|Old") << "no question without a change";
    project.Turn({12, 9, 12, 9});
    EXPECT_EQ(project.Ok(), "closed|English|Old");
    project.list.SetAll(false);
    project.list.SetAll(true);
    EXPECT_EQ(project.Ok(false), "open|OK/Cancel: 3 language(s) will be added, and 0 will be deleted.|English|Old");
    project.Turn({9, 2, 1});
    const std::string question = "|Yes/No: 1 language(s) will be added, and 1 will be deleted.\r\n"
                                 "All strings of the deleted language(s) will be deleted too. Continue?";
    EXPECT_EQ(project.Ok(false), "open" + question + "|English|Old");
    EXPECT_EQ(project.observer.changed + project.observer.removed, 0);
    EXPECT_EQ(project.Dump(), u"ID_A Normal  Hello x"_s);

    EXPECT_EQ(project.Ok(), "closed" + question + "|Old|French");
    EXPECT_GT(project.observer.changed, 0) << "the document is modified";
    EXPECT_EQ(project.Dump(), u"ID_A Normal  x "_s);
    EXPECT_EQ(project.Language(9), nullptr);
}

TEST(LanguageChoice, AddsTheDescriptionAndThenLanguagesInTheOrderOfTheList)
{
    LanguageChoice project(TWO_LANGUAGES + "##number|0\n");
    project.Turn({9, 12});
    EXPECT_TRUE(QByteArray::fromStdString(project.Ok()).endsWith("Continue?")) << "there may be none";
    while (!project.strings.subfolders.empty())
        project.DeleteFolder(*project.strings.subfolders.back());
    project.table.Rebuild();
    project.Open();
    project.list.SetAll(true);
    EXPECT_EQ(project.Ok(), "closed|OK/Cancel: 4 language(s) will be added, and 0 will be deleted."
                            "|French|English|Text10|Text9");
    EXPECT_EQ(project.strings.subfolders.front()->index, -1);
    project.Type(6, u"Hello"_s);
    EXPECT_EQ(project.Dump(), u"ID_STRING_0001 Normal     HELLO"_s);
}

TEST(LanguageDialog, ChecksLanguagesByKeysMouseAndButtons)
{
    LanguageDialog open;
    EXPECT_EQ(open.grid.Widths(), (std::vector<int>{130, 150}));
    EXPECT_EQ(open.Rows(), "French English* Text9 Text10") << "stored as sorted by number, the last first";
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Down, Qt::Key_Right, Qt::Key_Space})
        QTest::keyClick(open.dialog.focusWidget(), key);
    EXPECT_EQ(open.Rows(), "French* English Text9 Text10");
    open.Click(2, 0, 60);
    open.Click(0, 1, 10);
    EXPECT_EQ(open.Rows(), "French* English Text9 Text10") << "clicks beside the boxes";
    for (int i = 0; i < 3; ++i)
        open.Click(2, 0, 10);
    EXPECT_EQ(open.Rows(), "French* English Text9* Text10");
    open.buttons[1]->click(); // Clear All
    EXPECT_EQ(open.Rows(), "French English Text9 Text10");
    open.buttons[0]->click(); // Select All
    EXPECT_EQ(open.Rows(), "French* English* Text9* Text10*");
    QTest::keyClick(&open.grid, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&open.grid, Qt::Key_Space);
    EXPECT_EQ(open.Rows(), "French English Text9 Text10") << "all that are selected";
}

TEST(LanguageDialog, AppliesTheChoiceInTheShownOrderAndStoresItsStateOnClosing)
{
    LanguageDialog open;
    open.Click(0, 0, 60); // French, which stays selected
    TestWindow::ClickHeader(open.grid, 0);
    open.buttons[0]->click();
    open.boxes.answers = {false, true};
    QTest::keyClick(&open.grid, Qt::Key_Return);
    EXPECT_TRUE(open.dialog.isVisible()) << "not applied";
    EXPECT_EQ(open.grid.SelectedRows(), std::vector<int>{1});
    EXPECT_EQ(open.Rows(), "English* French* Text9* Text10*");
    TestWindow::ClickHeader(open.grid, 0);
    open.grid.setColumnWidth(1, 0);
    QTest::keyClick(&open.grid, Qt::Key_Return);
    EXPECT_EQ(open.dialog.result(), QDialog::Accepted);
    EXPECT_EQ(open.boxes.asked.last(), u"OK/Cancel: 3 language(s) will be added, and 0 will be deleted."_s);
    EXPECT_EQ(open.Columns(), (QStringList{u"English"_s, u"Old"_s, u"Text10"_s, u"Text9"_s, u"French"_s}));
    EXPECT_EQ(open.folder.Get("a.ini"), "[wnd_1002]\n0=130\nsort=-1\n1=0\n");

    const LanguageDialog other;
    TestWindow::ClickHeader(other.grid, 1);
    QTest::keyClick(&other.grid, Qt::Key_Escape);
    EXPECT_EQ(other.boxes.asked, QStringList());
    EXPECT_TRUE(other.folder.Get("a.ini").contains("sort=2")) << "stored nevertheless";
}
