#include "CellBlock.h"
#include "IdNames.h"
#include "StringCommands.h"
#include "StringOrder.h"
#include "StringProject.h"

#include <QAbstractItemModelTester>
#include <QAbstractTableModel>

#include <numeric>
#include <random>

using namespace Qt::StringLiterals;

namespace
{

/// The string table as an item model, as a window has it: notices become signals one by one, and from the third of a
/// batch on one reset.
class GridModel : public QAbstractTableModel, public IStringGrid
{
public:
    const StringTable *table = nullptr;
    int messages = 0;

    int rowCount(const QModelIndex &parent = {}) const override { return parent.isValid() ? 0 : table->RowCount() + 1; }
    int columnCount(const QModelIndex &parent = {}) const override
    {
        return parent.isValid() ? 0 : table->ColumnCount();
    }
    QVariant data(const QModelIndex &index, int role) const override
    {
        return role == Qt::DisplayRole ? table->CellText(index.row(), index.column()) : QVariant();
    }

    void RowInserting(int row) override
    {
        if (IsTold())
            beginInsertRows({}, row, row);
    }
    void RowInserted(int) override
    {
        if (!isInReset)
            endInsertRows();
    }
    void RowRemoving(int row) override
    {
        if (IsTold())
            beginRemoveRows({}, row, row);
    }
    void RowRemoved(int) override
    {
        if (!isInReset)
            endRemoveRows();
    }
    void ColumnInserting(int col) override { beginInsertColumns({}, col, col); }
    void ColumnInserted(int) override { endInsertColumns(); }
    void ColumnRemoving(int col) override { beginRemoveColumns({}, col, col); }
    void ColumnRemoved(int) override { endRemoveColumns(); }
    void RowsMoving() override { Q_EMIT layoutAboutToBeChanged(); }
    void RowsMoved(const std::vector<int> &order) override
    {
        std::vector<int> now(order.size() + 1, int(order.size())); // the new-row line stays
        for (size_t row = 0; row < order.size(); ++row)
            now[size_t(order[row])] = int(row);
        const QModelIndexList from = persistentIndexList();
        QModelIndexList to;
        for (const QModelIndex &old : from)
            to.append(index(now[size_t(old.row())], old.column()));
        changePersistentIndexList(from, to);
        Q_EMIT layoutChanged();
    }
    void TableResetting() override { beginResetModel(); }
    void TableReset() override { endResetModel(); }
    void BatchBegins() override
    {
        EXPECT_FALSE(isInBatch);
        isInBatch = true;
        told = 0;
    }
    void BatchEnds() override
    {
        if (std::exchange(isInReset, false))
            endResetModel();
        isInBatch = false;
    }
    void CellShows(int row, int col, const QString &) override
    {
        if (!isInReset)
            Q_EMIT dataChanged(index(row, col), index(row, col));
    }
    void ReportCellError(int code, int, int) override { ShowMessage(code); }
    void ShowMessage(int) override
    {
        ++messages;
        EXPECT_FALSE(isInBatch) << "a message may be a box, and the table is drawn below it";
    }

private:
    bool IsTold()
    {
        if (!isInReset && isInBatch && ++told > 2) {
            beginResetModel();
            isInReset = true;
        }
        return !isInReset;
    }

    bool isInBatch = false;
    bool isInReset = false;
    int told = 0;
};

/// What a view would show: cells that are read only where a signal says so.
class Screen
{
public:
    explicit Screen(const GridModel &source) : model(source)
    {
        QObject::connect(&model, &GridModel::rowsInserted,
                         [this](const QModelIndex &, int row, int) { cells.insert(cells.begin() + row, RowNow(row)); });
        QObject::connect(&model, &GridModel::rowsRemoved,
                         [this](const QModelIndex &, int row, int) { cells.erase(cells.begin() + row); });
        QObject::connect(&model, &GridModel::dataChanged, [this](const QModelIndex &at) {
            cells[size_t(at.row())][at.column()] = at.data().toString();
        });
        QObject::connect(&model, &GridModel::columnsInserted, [this] { cells = Now(); });
        QObject::connect(&model, &GridModel::columnsRemoved, [this] { cells = Now(); });
        QObject::connect(&model, &GridModel::layoutChanged, [this] { cells = Now(); });
        QObject::connect(&model, &GridModel::modelReset, [this] { cells = Now(); });
    }

    [[nodiscard]] std::vector<QStringList> Now() const
    {
        std::vector<QStringList> now;
        for (int row = 0; row < model.rowCount(); ++row)
            now.push_back(RowNow(row));
        return now;
    }

    std::vector<QStringList> cells;

private:
    [[nodiscard]] QStringList RowNow(int row) const
    {
        QStringList now;
        for (int col = 0; col < model.columnCount(); ++col)
            now << model.index(row, col).data().toString();
        return now;
    }

    const GridModel &model;
};

void FailOnWarning(QtMsgType, const QMessageLogContext &, const QString &text)
{
    ADD_FAILURE() << qPrintable(text);
}

const QByteArray TABLE = "Number of Language|2\nString ID|Resource Type|Description|English(9)|French(12)\n"
                         "ID_B10|Push|b|B|\nid_low|Normal||A|aa\n2 bad id|Normal|c||x\nID_B2|Normal|d|D|dd\n"
                         "ID_C|Push|e|E|\n##number|5\n";

struct GridWalk : StringProject
{
    explicit GridWalk(unsigned seed) : random(seed)
    {
        EXPECT_EQ(Read(TABLE), 0);
        model.table = &table;
        table.Rebuild();
    }

    int Below(int end) { return int(random() % unsigned(end)); }

    template <typename T, typename... Arguments> void Run(Arguments &&...arguments)
    {
        table.history.Run(std::make_unique<T>(table, std::forward<Arguments>(arguments)...));
    }

    /// One edit, undo, redo or sort.
    void Step()
    {
        static const QStringList TEXTS{u"ID_A"_s, u"id_x"_s, u"bad name"_s, u""_s, u"push"_s, u"Hello"_s, u"Normal"_s};
        const QString &text = TEXTS[Below(int(TEXTS.size()))];
        const int row = Below(table.RowCount() + 1);
        switch (Below(11)) {
        case 9:
            return SetCells(TEXTS);
        case 10:
            return PasteBlock(TEXTS);
        case 0:
            return Run<STR_MOD_CMD>(row, Below(table.ColumnCount()), text);
        case 1:
            return Run<STR_IST_CMD>(table.RowCount(), Below(table.ColumnCount()), text);
        case 2:
        case 3:
            return Run<STR_DEL_CMD>(SomeRows());
        case 4:
            table.Copy(SomeRows(pastesFail));
            return Run<STR_PST_CMD>();
        case 5:
            return table.history.Undo();
        case 6:
            return table.history.Redo();
        default:
            table.Reorder(StringOrder(table, Below(2 * table.ColumnCount() + 1) - table.ColumnCount()));
        }
    }

    /// A step that may fail, and has changed nothing then.
    void SetCells(const QStringList &texts)
    {
        const auto text = [&] { return texts[Below(int(texts.size()))]; };
        std::vector<CellChange> changes;
        for (const int row : SomeRows())
            changes.push_back({row, 1 + Below(table.ColumnCount() - 1), text()});
        std::vector<NewRow> made;
        for (int n = Below(4); n > 0; --n)
            made.push_back({text().toUpper(), Below(2) == 0, {{2 + Below(table.ColumnCount() - 2), text()}}});
        const QString before = Stored();
        const int messages = model.messages;
        Run<STR_SET_CMD>(changes, made);
        EXPECT_TRUE(model.messages == messages || Stored() == before);
    }

    /// A step that never fails.
    void PasteBlock(const QStringList &texts)
    {
        CellRows block(1 + size_t(Below(5)));
        for (QStringList &line : block) {
            for (int n = Below(3); n < 3; ++n)
                line << (Below(4) ? texts[Below(int(texts.size()))] : table.CellText(Below(table.RowCount() + 1), 0));
        }
        std::vector<int> columns(size_t(table.ColumnCount()));
        std::iota(columns.begin(), columns.end(), 0);
        const PastePlan plan = PlanPaste(
            table, block, {Below(table.RowCount() + 1), Below(table.ColumnCount()), SomeRows(), SomeRows(), columns});
        const int messages = model.messages;
        Run<STR_SET_CMD>(plan.changes, plan.rows);
        EXPECT_EQ(model.messages, messages);
    }

    /// What a window does to the columns and to the whole.
    void BigStep()
    {
        switch (Below(4)) {
        case 0:
            if (!Language(20))
                return table.AddLanguageColumn(AddFolder(strings, KIND_LANGUAGE, 20, u"Chinese"_s));
            strings.DeleteFolder(Language(20));
            return table.RemoveLanguageColumn(20);
        case 1:
            return table.Forget();
        default:
            table.Rebuild();
        }
    }

    std::vector<int> SomeRows(bool withBadIds = true)
    {
        std::vector<int> some;
        for (int row = 0; row < table.RowCount(); ++row) {
            if (Below(3) == 0 && (withBadIds || IsValidIdName(table.CellText(row, 0))))
                some.push_back(row);
        }
        return some;
    }

    /// The rows of the tree in its order, as a save writes them.
    [[nodiscard]] QString Stored() const
    {
        QString text;
        for (CBaseRes *res : strings.subfolders.front()->resources) {
            text += u'|' + env.NarrowToWide(res->Id()->name) + u' ' + QString::number(res->Id()->push);
            for (const auto &language : strings.subfolders) {
                const CStringRes *cell = static_cast<CStringRes *>(res)->FindLanguage(language->index);
                text += u' ' + (cell ? cell->text : QString());
            }
        }
        return text;
    }

    bool pastesFail = true; // some of them, which leave their first rows
    std::mt19937 random;
    GridModel model;
    StringTable table{*this, model};
};

} // namespace

TEST(StringGrid, TellsAnItemModelAllThatHappens)
{
    const QtMessageHandler before = qInstallMessageHandler(FailOnWarning);
    for (unsigned seed = 1; seed <= 100 && !testing::Test::HasFailure(); ++seed) {
        SCOPED_TRACE(seed);
        GridWalk walk(seed);
        const QAbstractItemModelTester tester(&walk.model, QAbstractItemModelTester::FailureReportingMode::Warning);
        Screen shown(walk.model);
        shown.cells = shown.Now();
        for (int step = 0; step < 60; ++step) {
            if (walk.Below(10) == 0)
                walk.BigStep();
            else
                walk.Step();
            ASSERT_EQ(shown.cells, shown.Now()) << step;
        }
    }
    qInstallMessageHandler(before);
}

TEST(StringGrid, EditsOfASortedListUndoneAndDoneAgainLeadToTheSameTree)
{
    for (unsigned seed = 1; seed <= 200 && !testing::Test::HasFailure(); ++seed) {
        SCOPED_TRACE(seed);
        GridWalk walk(seed);
        walk.pastesFail = false;
        CommandHistory &history = walk.table.history;
        const QString start = walk.Stored();
        for (size_t step = 0; step < StringTable::MOST_UNDO; ++step)
            walk.Step();
        while (history.CanRedo())
            history.Redo();
        const QString end = walk.Stored();
        for (int round = 0; round < 2; ++round) {
            while (history.CanUndo())
                history.Undo();
            EXPECT_EQ(walk.Stored(), start);
            walk.table.Reorder(StringOrder(walk.table, walk.Below(2) ? 4 : -1));
            while (history.CanRedo())
                history.Redo();
            EXPECT_EQ(walk.Stored(), end);
        }
    }
}
