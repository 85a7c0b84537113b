// SPDX-License-Identifier: MIT
// Tests the string view and its table with random user actions.
#include "CFileWatchDlg.h"
#include "CListFltrDlg.h"
#include "FilterChoice.h"
#include "FindBar.h"
#include "StringFile.h"
#include "StringWindow.h"

#include <QAbstractItemModelTester>
#include <QClipboard>
#include <QLineEdit>
#include <QScrollBar>

#include <random>

namespace
{

const ActionId PLAIN[] = {ACTION_UNDO,        ACTION_UNDO,    ACTION_UNDO,     ACTION_REDO,       ACTION_REDO,
                          ACTION_COPY,        ACTION_PASTE,   ACTION_DELETE,   ACTION_SELECT_ALL, ACTION_COPY_CELLS,
                          ACTION_PUSH_STRING, ACTION_NEW,     ACTION_RENAME,   ACTION_NEXT_GAP,   ACTION_PREVIOUS_GAP,
                          ACTION_FIND_NEXT,   ACTION_DETAILS, ACTION_FIND_BAR, ACTION_CUT,        ACTION_DELETE_ALL};
const Qt::Key ENDS[] = {Qt::Key_Return, Qt::Key_Tab,  Qt::Key_Tab,   Qt::Key_Backtab,
                        Qt::Key_Up,     Qt::Key_Down, Qt::Key_Escape};

/// Makes random user actions in the window of a project's strings. Answers boxes at random too.
struct StringWalk : StringWindow
{
    explicit StringWalk(unsigned seed) : random(seed)
    {
        QObject::connect(&boxTimer, &QTimer::timeout, [this] { AnswerBox(); });
        boxTimer.start(1);
    }
    ~StringWalk() { Document().SetModifiedFlag(false); }

    int Below(int end) { return int(random() % unsigned(end)); }
    template <typename T, size_t N> const T &OneOf(const T (&all)[N]) { return all[size_t(Below(int(N)))]; }
    QString Text()
    {
        static const QStringList texts =
            u"|a|Two|push|Normal|id_x|ID_A2|1 bad|<New>|a\tb|c\r\nd|\u0633|Push|\U0001F600|\xD83D|ID|ID_7|"_s.split(
                u'|') +
            QStringList(QChar(0));
        return texts[Below(int(texts.size()))];
    }

    void Step();
    /// Checks what must be true after every action.
    void Check() const;

private:
    void AnswerBox();
    void TypeAndGoOn();
    void PasteText(QWidget &into, const QString &text);
    void SelectSome();
    void Filter();
    void PasteCells();
    void Replace();
    void Languages() { Frame().RunAction(ACTION_LANGUAGE); }
    void HideOrResize();
    void ReadStringsAgain();
    void ReloadAnother();
    void Clear();
    void OtherNode();

    std::mt19937 random;
    QTimer boxTimer;
};

void FailOnWarning(QtMsgType, const QMessageLogContext &, const QString &text)
{
    if (!text.startsWith(u"This plugin does not support"_s)) // comes from the platform plugin that has no screen
        ADD_FAILURE() << qPrintable(text);
}

} // namespace

void StringWalk::AnswerBox()
{
    QWidget *const open = QApplication::activeModalWidget();
    if (auto *const box = qobject_cast<QMessageBox *>(open)) {
        const auto buttons = box->buttons();
        return buttons[Below(int(buttons.size()))]->click();
    }
    if (auto *const reload = dynamic_cast<CFileWatchDlg *>(open)) // asks about a file that another program has written
        QMetaObject::invokeMethod(reload, Below(2) ? &QDialog::accept : &QDialog::reject, Qt::QueuedConnection);
    auto *const languages = dynamic_cast<CListFltrDlg *>(open);
    if (!languages)
        return;
    auto &list = Find<CListGrid>(*languages);
    for (int row = 0; row < list.model()->rowCount(); ++row) {
        list.SelectAlone(row, 0);
        if (Below(4) == 0)
            QTest::keyClick(&list, Qt::Key_Space);
    }
    QMetaObject::invokeMethod(languages, Below(3) ? &QDialog::accept : &QDialog::reject, Qt::QueuedConnection);
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

void StringWalk::SelectSome()
{
    std::vector<int> rows;
    for (int row = 0; row < Grid().model()->rowCount(); ++row) {
        if (Below(3) == 0)
            rows.push_back(row);
    }
    Grid().setFocus();
    Grid().Select(rows);
}

void StringWalk::Filter()
{
    if (Below(4) == 0 && Find<FindBar>(View()).isVisible()) {
        Named<QLineEdit>(u"Find"_s).setFocus();
        return Key(Qt::Key_Escape);
    }
    if (!Find<FindBar>(View()).isVisible())
        Frame().RunAction(ACTION_FIND_BAR);
    if (!Find<FindBar>(View()).isVisible())
        return; // a typed text was refused
    const StringCondition before = Find<FindBar>(View()).Condition();
    if (Below(2)) {
        auto &choice = Named<FilterChoice>(OneOf({u"Column"_s, u"Missing in"_s, u"Kind"_s}));
        choice.setCurrentIndex(Below(choice.count()));
    } else {
        auto &text = Named<QLineEdit>(u"Find"_s);
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
    auto &replacement = Named<QLineEdit>(u"Replace with"_s);
    if (!replacement.isVisible())
        return;
    replacement.setText(Text());
    replacement.setFocus();
    Key(Qt::Key_Return);
}

void StringWalk::HideOrResize()
{
    const int col = Below(Grid().model()->columnCount());
    switch (Below(4)) {
    case 0:
        return Grid().HideColumn(col, Below(3) != 0);
    case 1:
        return Grid().horizontalHeader()->resizeSection(col, Below(5) * 100);
    case 2:
        return Frame().resize(500 + Below(4) * 100, 250 + Below(300));
    default:
        for (QScrollBar *bar : {Grid().horizontalScrollBar(), Grid().verticalScrollBar()})
            bar->setValue(Below(bar->maximum() + 1));
    }
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
    switch (Below(60)) {
    case 0:
        return Below(2) ? SaveAndReload() : Below(2) ? ReadStringsAgain() : ReloadAnother();
    case 1:
        return Below(4) ? OtherNode() : Clear();
    case 2:
    case 3:
        return Languages();
    case 4: { // an IDE's command begins during any user action
        const CMainFrame::Busy busy(Frame(), 0xAFBDDBFC);
        return QCoreApplication::processEvents();
    }
    case 5:
    case 6:
        return Replace();
    case 7:
    case 8:
    case 9:
        return PasteCells();
    case 10:
    case 11:
        return HideOrResize();
    case 12:
    case 13:
    case 14:
        return Filter();
    case 15:
    case 16: {
        QHeaderView &header = *Grid().horizontalHeader();
        const QPoint place(header.sectionViewportPosition(Below(header.count())) + 20, 5);
        return QTest::mouseClick(header.viewport(), Qt::LeftButton, {}, place);
    }
    case 17:
    case 18: {
        const QRect sheet = Grid().viewport()->rect();
        const QPoint place(Below(sheet.width()), Below(sheet.height()));
        return Below(2) ? QTest::mouseClick(Grid().viewport(), Qt::LeftButton, {}, place)
                        : QTest::mouseDClick(Grid().viewport(), Qt::LeftButton, {}, place);
    }
    case 19:
    case 20:
    case 21:
    case 22:
        return SelectSome();
    default:
        return Below(2) ? TypeAndGoOn() : Frame().RunAction(OneOf(PLAIN));
    }
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
    const QtMessageHandler before = qInstallMessageHandler(FailOnWarning);
    {
        StringWalk walk(GetParam());
        QTimer user; // refuses to load what another program has changed, if the window asks
        QObject::connect(&user, &QTimer::timeout, [] {
            if (auto *const dialog = dynamic_cast<CFileWatchDlg *>(QApplication::activeModalWidget()))
                dialog->reject();
        });
        user.start(1);
        const QAbstractItemModelTester tester(walk.Grid().model(),
                                              QAbstractItemModelTester::FailureReportingMode::Warning);
        for (int step = 0; step < 2'000 && !HasFailure(); ++step) {
            SCOPED_TRACE(step);
            walk.Step();
            do
                QCoreApplication::processEvents();
            while (QApplication::activeModalWidget());
            walk.Check();
        }
    }
    qInstallMessageHandler(before);
}

INSTANTIATE_TEST_SUITE_P(Seeds, StringWalkFrom, testing::Range(1U, 7U));
