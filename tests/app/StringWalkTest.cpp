// SPDX-License-Identifier: MIT
// Tests the string view and its table with random user actions.
#include "CListFltrDlg.h"
#include "FilterChoice.h"
#include "FindBar.h"
#include "RandomUser.h"
#include "StringFile.h"
#include "StringWindow.h"

#include <QAbstractItemModelTester>
#include <QClipboard>
#include <QLineEdit>

namespace
{

const ActionId PLAIN[] = {ACTION_UNDO,        ACTION_UNDO,    ACTION_UNDO,     ACTION_REDO,       ACTION_REDO,
                          ACTION_COPY,        ACTION_PASTE,   ACTION_DELETE,   ACTION_SELECT_ALL, ACTION_COPY_CELLS,
                          ACTION_PUSH_STRING, ACTION_NEW,     ACTION_RENAME,   ACTION_NEXT_GAP,   ACTION_PREVIOUS_GAP,
                          ACTION_FIND_NEXT,   ACTION_DETAILS, ACTION_FIND_BAR, ACTION_CUT,        ACTION_DELETE_ALL};
const Qt::Key ENDS[] = {Qt::Key_Return, Qt::Key_Tab,  Qt::Key_Tab,   Qt::Key_Backtab,
                        Qt::Key_Up,     Qt::Key_Down, Qt::Key_Escape};

struct StringWalk : StringWindow, RandomUser
{
    explicit StringWalk(unsigned seed) : RandomUser(seed) {}

private:
    QString Text()
    {
        static const QStringList texts =
            u"|a|Two|push|Normal|id_x|ID_A2|1 bad|<New>|a\tb|c\r\nd|\u0633|Push|\U0001F600|\xD83D|ID|ID_7|"_s.split(
                u'|') +
            QStringList(QChar(0));
        return texts[Below(int(texts.size()))];
    }

    void Step() override;
    void Check() const override;
    void Fill(QDialog &dialog) override;
    void TypeAndGoOn();
    void PasteText(QWidget &into, const QString &text);
    void Filter();
    void PasteCells();
    void Replace();
    void ReadStringsAgain();
    void ReloadAnother();
    void Clear();
    void OtherNode();
};

} // namespace

void StringWalk::Fill(QDialog &dialog)
{
    if (!dynamic_cast<CListFltrDlg *>(&dialog))
        return;
    auto &list = Find<CListGrid>(dialog);
    for (int row = 0; row < list.model()->rowCount(); ++row) {
        list.SelectAlone(row, 0);
        if (Below(4) == 0)
            QTest::keyClick(&list, Qt::Key_Space);
    }
}

/// Types into the editor, if it is open or the row in focus has one. Then presses a key that leaves it, or doesn't.
void StringWalk::TypeAndGoOn()
{
    if (!Editor().IsOpen()) {
        Grid().SelectAlone(Below(Grid().model()->rowCount()), Below(Grid().model()->columnCount()));
        Grid().setFocus();
        Key(Below(8) ? Qt::Key_Return : Qt::Key_Down, Qt::AltModifier);
    }
    if (!Editor().IsOpen()) {
        if (TypeBox().IsOpen())
            TypeBox().setCurrentIndex(Below(2));
    } else if (Below(3) == 0) {
        PasteText(Editor(), Text());
    } else if (Below(3)) {
        Type(Below(2) ? u"id_"_s + QString::number(Below(40)) : u"x"_s);
    }
    if (Below(5))
        Key(OneOf(ENDS), Below(8) ? Qt::NoModifier : Qt::ControlModifier);
}

void StringWalk::PasteText(QWidget &into, const QString &text)
{
    QGuiApplication::clipboard()->setText(text);
    into.setFocus();
    Frame().RunAction(Below(3) ? ACTION_PASTE : ACTION_UNDO);
}

void StringWalk::Filter()
{
    if (Below(4) == 0 && Find<FindBar>(View()).isVisible()) {
        Named<QLineEdit>(View(), u"Find"_s).setFocus();
        return Key(Qt::Key_Escape);
    }
    if (!Find<FindBar>(View()).isVisible())
        Frame().RunAction(ACTION_FIND_BAR);
    if (!Find<FindBar>(View()).isVisible())
        return; // a typed text was refused
    const StringCondition before = Find<FindBar>(View()).Condition();
    if (Below(2)) {
        auto &choice = Named<FilterChoice>(View(), OneOf({u"Column"_s, u"Missing in"_s, u"Kind"_s}));
        choice.setCurrentIndex(Below(choice.count()));
    } else {
        auto &text = Named<QLineEdit>(View(), u"Find"_s);
        text.setFocus();
        Below(3) ? text.setText(OneOf({u""_s, u"a"_s, u"i"_s, u"id"_s, u"ID_A"_s})) : PasteText(text, Text());
    }
    const StringCondition now = Find<FindBar>(View()).Condition();
    if (now != before) {
        EXPECT_EQ(Grid().model()->rowCount(), int(RowsThatMeet(now, Table()).size()) + 1);
    }
}

void StringWalk::PasteCells()
{
    QString block;
    for (int line = Below(20) ? 1 + Below(5) : 130; line > 0; --line) {
        for (int cell = Below(4); cell > 0; --cell)
            block += Text() + (Below(4) ? u"\t"_s : u"\""_s);
        block += u'\n';
    }
    if (Below(4))
        QGuiApplication::clipboard()->setText(block); // otherwise pastes what Copy Cells has copied
    Frame().RunAction(ACTION_PASTE_CELLS);
}

void StringWalk::Replace()
{
    Frame().RunAction(ACTION_REPLACE);
    auto &replacement = Named<QLineEdit>(View(), u"Replace with"_s);
    if (!replacement.isVisible())
        return;
    replacement.setText(Text());
    replacement.setFocus();
    Key(Qt::Key_Return);
}

/// Does what a change of the watched string file does.
void StringWalk::ReadStringsAgain()
{
    if (!Save())
        return;
    const QStringList before = TreeRows();
    Document().treeGoes.Tell(*Strings());
    EXPECT_EQ(ReadStringFile(folder.Path("demo/res/ref_list_demo.txt"), Document()), 0);
    Document().UpdateAllViews(nullptr);
    EXPECT_EQ(TreeRows(), before);
}

/// Has another program replace the string file.
void StringWalk::ReloadAnother()
{
    QByteArray rows = "Number of Language|2\nString ID|Resource Type|Description|French(12)|English(9)\n";
    if (Below(4) == 0)
        rows = "Number of Language|0\nString ID|Resource Type|Description\n";
    for (int row = Below(30); row > 0; --row)
        rows += "ID_" + QByteArray::number(row * 3) + (Below(2) ? "|Push|d|x|\n" : "|Normal|||y\n");
    if (!QFile::exists(folder.Path("demo/res/ref_list_demo.txt")))
        return;
    const bool isModified = Document().IsModified();
    folder.Put("demo/res/ref_list_demo.txt", StringFileBytes(rows + "##number|0\n"));
    EXPECT_EQ(Document().TakeInChanges(), isModified ? CResDoc::Outside::LeftOut : CResDoc::Outside::TakenIn);
}

void StringWalk::Clear()
{
    Document().ClearByKind(*Strings());
    Document().UpdateAllViews(nullptr);
}

void StringWalk::OtherNode()
{
    CResFolder *const strings = Strings();
    Child().Selected().SelectFolder(&Document().root);
    if (Below(2))
        Document().UpdateAllViews(nullptr);
    Child().Selected().SelectFolder(strings);
}

void StringWalk::Step()
{
    WakeUp();
    QWidget &sheet = *Grid().viewport();
    const int col = Below(Grid().model()->columnCount());
    ActOneOf({{1, [&] { Below(2)   ? SaveAndReload()
                        : Below(2) ? ReadStringsAgain()
                                   : ReloadAnother(); }},
              {1, [&] { Below(4) ? OtherNode() : Clear(); }},
              {2, [&] { Frame().RunAction(ACTION_LANGUAGE); }},
              {1,
               [&] { // an IDE's command begins during any user action
                   const CMainFrame::Busy busy(Frame(), 0xAFBDDBFC);
                   QCoreApplication::processEvents();
               }},
              {2, [&] { Replace(); }},
              {3, [&] { PasteCells(); }},
              {2, [&] { Below(4) ? ResizeOrScroll(Grid(), Frame()) : Grid().HideColumn(col, Below(3) != 0); }},
              {3, [&] { Filter(); }},
              {2, [&] { ClickHeader(Grid(), col); }},
              {2, [&] { Below(2) ? Click(sheet, PointIn(sheet)) : DoubleClick(sheet, PointIn(sheet)); }},
              {4, [&] { SelectSome(Grid(), 3); }},
              {19, [&] { TypeAndGoOn(); }},
              {18, [&] { Frame().RunAction(OneOf(PLAIN)); }}});
}

void StringWalk::Check() const
{
    const QAbstractItemModel &model = *Grid().model();
    std::map<QString, QStringList> tree;
    if (Strings() && !Strings()->subfolders.empty()) {
        for (CBaseRes *res : Strings()->subfolders.front()->resources) {
            const QStringList row = TreeRow(*res);
            tree.emplace(row.front(), row);
        }
    }
    ASSERT_EQ(size_t(Table().RowCount()), tree.size());
    const int rows = model.rowCount() - 1;
    for (int row = 0; row < rows; ++row) {
        QStringList cells;
        for (int col = 0; col < model.columnCount(); ++col)
            cells << model.index(row, col).data(Qt::EditRole).toString();
        const auto found = tree.extract(cells.front());
        ASSERT_FALSE(found.empty()) << row << cells.front().toStdString();
        ASSERT_EQ(cells, found.mapped()) << row;
    }
    ASSERT_TRUE(tree.empty() || !Find<FindBar>(View()).Condition().IsEmpty());
    ASSERT_EQ(model.index(rows, 0).data().toString(), u"<New>"_s);
    const std::vector<int> selected = Grid().SelectedRows();
    ASSERT_TRUE(selected.empty() || (selected.front() >= 0 && selected.back() <= rows));
    ASSERT_EQ(Grid().CountSelected().rows, int(selected.size()));
    ASSERT_LT(Grid().currentIndex().row(), model.rowCount());
    ASSERT_TRUE(!Editor().IsOpen() || (Editor().Cell().isValid() && !Editor().isHidden()));
    ASSERT_FALSE(Editor().IsOpen() && TypeBox().IsOpen());
}

class StringWalkFrom : public testing::TestWithParam<unsigned>
{
};

TEST_P(StringWalkFrom, GridTreeAndFileStayEqual)
{
    const FailOnWarnings guard;
    StringWalk walk(GetParam());
    const QAbstractItemModelTester tester(walk.Grid().model(), QAbstractItemModelTester::FailureReportingMode::Warning);
    walk.Run(2'000);
}

INSTANTIATE_TEST_SUITE_P(Seeds, StringWalkFrom, testing::Range(1U, 7U));
