// SPDX-License-Identifier: MIT
#include "StringGridModel.h"
#include "GridWalk.h"
#include "ListCellDelegate.h"
#include "RandomUser.h"

#include <QAbstractItemModelTester>

namespace
{

/// Fails on a message inside a batch, and on a change of the focus inside one.
class WatchedModel : public StringGridModel
{
public:
    WatchedModel()
    {
        focusCell = [this](int row, int) {
            EXPECT_FALSE(isInBatch);
            EXPECT_TRUE(row >= 0 && row < rowCount());
            ++focused;
        };
        showMessage = [this](int) { EXPECT_FALSE(isInBatch) << "a message may be a box: the table is drawn below it"; };
        changed = [this] { ++changes; };
    }
    void BatchBegins() override
    {
        EXPECT_FALSE(std::exchange(isInBatch, true));
        StringGridModel::BatchBegins();
    }
    void BatchEnds() override
    {
        isInBatch = false;
        StringGridModel::BatchEnds();
    }

    int focused = 0;
    int changes = 0;

private:
    bool isInBatch = false;
};

/// What a view would show: it reads a cell only after a signal for it.
class Screen
{
public:
    explicit Screen(const QAbstractItemModel &source) : model(source), cells(Now())
    {
        using Model = QAbstractItemModel;
        QObject::connect(&model, &Model::rowsInserted, [this](const QModelIndex &, int row, int) {
            ++told;
            cells.insert(cells.begin() + row, RowNow(row));
        });
        QObject::connect(&model, &Model::rowsRemoved, [this](const QModelIndex &, int row, int) {
            ++told;
            cells.erase(cells.begin() + row);
        });
        QObject::connect(&model, &Model::dataChanged, [this](const QModelIndex &first, const QModelIndex &last) {
            for (int row = first.row(); row <= last.row(); ++row)
                cells[size_t(row)] = RowNow(row);
        });
        for (const auto signal : {&Model::columnsInserted, &Model::columnsRemoved})
            QObject::connect(&model, signal, [this] { cells = Now(); });
        QObject::connect(&model, &Model::layoutChanged, [this] { cells = Now(); });
        QObject::connect(&model, &Model::modelReset, [this] {
            ++resets;
            cells = Now();
        });
    }

    [[nodiscard]] std::vector<QStringList> Now() const
    {
        std::vector<QStringList> now;
        for (int row = 0; row < model.rowCount(); ++row)
            now.push_back(RowNow(row));
        return now;
    }

private:
    [[nodiscard]] QStringList RowNow(int row) const
    {
        QStringList now;
        for (int col = 0; col < model.columnCount(); ++col)
            now << model.index(row, col).data().toString();
        return now;
    }

    const QAbstractItemModel &model;

public:
    std::vector<QStringList> cells;
    int told = 0;
    int resets = 0;
};

/// Returns the rows of the table that the model shows, or those that it hides, by ID with their texts.
std::map<QString, QStringList> RowsThatAre(bool shown, const StringTable &table, const StringGridModel &model)
{
    std::map<QString, QStringList> rows;
    for (int row = 0; row < table.RowCount(); ++row) {
        QStringList texts;
        for (int col = 0; col < table.ColumnCount(); ++col)
            texts << table.CellText(row, col);
        if ((model.ShownRow(row) >= 0) == shown)
            rows.emplace(texts.front(), texts);
    }
    return rows;
}

QByteArray TableOf(int rows)
{
    QByteArray file = WALK_TABLE.left(WALK_TABLE.indexOf("\nID_B10") + 1);
    for (int row = 0; row < rows; ++row)
        file += "ID_" + QByteArray::number(row) + "|Normal||text|\n";
    return file + "##number|" + QByteArray::number(rows) + '\n';
}

/// Makes changes of all kinds in one batch.
void MixedBatch(GridWalk &walk)
{
    const StringTable::Batch batch(walk.table);
    for (int n = 0; n < 4; ++n) {
        const int row = walk.Below(walk.table.RowCount() + 1);
        switch (walk.Below(6)) {
        case 0:
            (void)walk.table.CreateRow({}, row);
            break;
        case 1:
            (void)walk.table.DeleteRow(row);
            break;
        case 2:
            walk.table.Reorder(StringOrder(walk.table, walk.Below(2) ? -1 : 1));
            break;
        default:
            (void)walk.table.ApplyCellEdit(row, 3, QString::number(walk.Below(9)));
        }
    }
}

} // namespace

TEST(StringGridModel, SignalsEveryChange)
{
    const FailOnWarnings guard;
    for (unsigned seed = 1; seed <= 60 && !testing::Test::HasFailure(); ++seed) {
        SCOPED_TRACE(seed);
        WatchedModel model;
        GridWalk walk(seed, model, seed % 10 ? WALK_TABLE : TableOf(150));
        model.SetTable(&walk.table);
        const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Warning);
        const Screen screen(model);
        for (int step = 0; step < 60; ++step) {
            if (walk.Below(5) == 0)
                model.SetFilter(walk.Below(4) ? std::optional(walk.SomeRows()) : std::nullopt);
            const auto hidden = RowsThatAre(false, walk.table, model);
            const auto shown = RowsThatAre(true, walk.table, model);
            const QPersistentModelIndex kept(model.index(walk.Below(model.rowCount()), 0));
            const CStringRes *const head = walk.table.Head(model.TableRow(kept.row()));
            if (walk.Below(10) == 0)
                walk.BigStep();
            else if (walk.Below(5) == 0)
                MixedBatch(walk);
            else
                walk.Step();
            ASSERT_EQ(screen.cells, screen.Now()) << step;
            const auto hiddenNow = RowsThatAre(false, walk.table, model);
            for (const auto &[id, texts] : hiddenNow) {
                ASSERT_TRUE(hidden.contains(id) && hidden.at(id).first(3) == texts.first(3)) << step;
                ASSERT_FALSE(shown.contains(id)) << step;
            }
            const std::vector<int> rows = model.ShownTableRows();
            ASSERT_EQ(rows.size() + hiddenNow.size(), size_t(walk.table.RowCount()));
            ASSERT_TRUE(std::is_sorted(rows.begin(), rows.end()));
            ASSERT_TRUE(!kept.isValid() || walk.table.Head(model.TableRow(kept.row())) == head) << step;
        }
    }
}

TEST(StringGridModel, ResetsOnceForALongBatch)
{
    for (const int rows : {100, 101, 500}) {
        WatchedModel model;
        GridWalk walk(1, model, TableOf(rows));
        model.SetTable(&walk.table);
        Screen screen(model);
        std::vector<int> all(static_cast<size_t>(rows));
        std::iota(all.begin(), all.end(), 0);
        const auto isToldOf = [&](auto run) {
            model.focused = model.changes = screen.told = screen.resets = 0;
            run();
            EXPECT_EQ(screen.resets, rows > 100);
            EXPECT_EQ(screen.told, 100);
            EXPECT_EQ(model.focused, 1);
            EXPECT_EQ(model.changes, 1);
            EXPECT_EQ(screen.cells, screen.Now());
        };
        isToldOf([&] { walk.Run<STR_DEL_CMD>(all); });
        isToldOf([&] { walk.table.history.Undo(); });
        EXPECT_EQ(model.rowCount(), rows + 1);
    }
}

TEST(StringGridModel, ShowsAShortLineOfATextAndAllOfItOnRequest)
{
    StringGridModel model;
    GridWalk walk(1, model);
    walk.table.AddLanguageColumn(walk.AddFolder(walk.strings, KIND_LANGUAGE, 20, u"Arabic & \n<b>more"_s));
    model.SetTable(&walk.table);
    const auto cell = [&](int role) { return model.index(0, 5).data(role).toString(); };
    const auto put = [&](const QString &text) { walk.Run<STR_MOD_CMD>(0, 5, text); };
    EXPECT_EQ(cell(Qt::AccessibleTextRole), u"ID_B10, Arabic & \n<b>more: "_s);
    put(u"a\r\nb\nc\td"_s);
    EXPECT_EQ(cell(Qt::DisplayRole), u"a↵b↵c d"_s);
    EXPECT_EQ(cell(Qt::EditRole), u"a\r\nb\nc\td"_s);
    EXPECT_TRUE(cell(Qt::ToolTipRole).contains(u"a\r\nb\nc\td"_s));
    put(QString(300, u'x'));
    EXPECT_EQ(cell(Qt::DisplayRole), QString(300, u'x'));
    EXPECT_EQ(cell(Qt::ToolTipRole), QString());
    put(QString(299, u'x') + u"\U0001F600<i>"_s);
    EXPECT_EQ(cell(Qt::DisplayRole), QString(299, u'x') + u'…');
    EXPECT_TRUE(cell(Qt::ToolTipRole).contains(u"\U0001F600&lt;i&gt;"_s));
    EXPECT_EQ(model.headerData(5, Qt::Horizontal, Qt::DisplayRole), u"Arabic & \n<b>more"_s);
    EXPECT_EQ(model.index(0, 5).data(ROLE_DIRECTION).value<Qt::LayoutDirection>(), Qt::RightToLeft);
    EXPECT_EQ(model.index(0, 3).data(ROLE_DIRECTION).value<Qt::LayoutDirection>(), Qt::LeftToRight);
    EXPECT_FALSE(model.index(0, 4).data(ROLE_IS_GAP).toBool()) << "marks are off";
    model.showsGaps = true;
    EXPECT_TRUE(model.index(0, 4).data(ROLE_IS_GAP).toBool());
    EXPECT_FALSE(model.index(0, 5).data(ROLE_IS_GAP).toBool());
    EXPECT_FALSE(model.index(model.rowCount() - 1, 4).data(ROLE_IS_GAP).toBool());
    model.SetTable(nullptr);
    EXPECT_EQ(model.rowCount() + model.columnCount(), 0);
}
