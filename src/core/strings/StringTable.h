// SPDX-License-Identifier: MIT
#pragma once

#include "CommandHistory.h"
#include "CounterNames.h"
#include "ResModel.h"
#include "RowList.h"

#include <map>
#include <set>
#include <unordered_set>

/// The results of edits of the string table. Those of failures are the numbers of the messages that the user sees.
enum StringEditCode : int
{
    EDIT_DONE = 0,
    EDIT_ID_TAKEN = 124,
    EDIT_NO_DEFAULT_ID = 125,
    EDIT_INVALID_ID = 130,
    EDIT_NO_LANGUAGE = 170,
    EDIT_NO_ROW = 171,
};

/// Returns the message for such a number; empty for 0.
[[nodiscard]] QString StringEditMessage(int code);

/// The place of a row in the tree: the IDs of the rows before and after it; empty if there was none.
struct TreePlace
{
    NarrowText before;
    NarrowText behind;
};

/// Tells the observer of a model that something has been removed.
struct RemovalTeller
{
    void operator()(CResModel *model) const
    {
        if (model->ids.observer)
            model->ids.observer->NodeRemoved(&model->root);
    }
};

/// A copy of a row. Making one with texts of languages, and destroying it, sets the document's modified flag.
struct Snapshot
{
    NarrowText id;
    bool push = false;
    qint32 pushKind = PUSH_NONE;
    QString description;
    std::vector<std::pair<qint32, QString>> texts;    ///< by language, in the order of the folders
    TreePlace place;                                  ///< the place of a row that has been deleted
    std::unique_ptr<CResModel, RemovalTeller> teller; ///< null without texts
};

/// Shows a string table: the grid of a window, or an object that shows nothing. Row and column numbers are those of the
/// table.
///
/// The table calls it before and after each change of rows or columns. Both functions may ask the table for any cell:
/// in the first the table is still unchanged, in the second it has changed. `CellShows` is called for each cell that
/// changes after `RowInserted`.
class IStringGrid
{
public:
    virtual ~IStringGrid() = default;
    virtual void RowInserting(int /*row*/) {}
    virtual void RowInserted(int /*row*/) {}
    virtual void RowRemoving(int /*row*/) {}
    virtual void RowRemoved(int /*row*/) {}
    virtual void ColumnInserting(int /*col*/) {}
    virtual void ColumnInserted(int /*col*/) {}
    virtual void ColumnRemoving(int /*col*/) {}
    virtual void ColumnRemoved(int /*col*/) {}
    /// Called when the order of all rows changes: the new row i is the old row `order[i]`.
    virtual void RowsMoving() {}
    virtual void RowsMoved(const std::vector<int> & /*order*/) {}
    /// Called when all rows and columns are replaced. TableResetting must not use the table, because rows may have been
    /// removed from the tree.
    virtual void TableResetting() {}
    virtual void TableReset() {}
    /// Between BatchBegins and `BatchEnds` there may be many notifications, and a grid may defer its work for them.
    /// Batches aren't nested, and there are no messages in a batch.
    virtual void BatchBegins() {}
    virtual void BatchEnds() {}
    virtual void CellShows(int /*row*/, int /*col*/, const QString & /*text*/) {}
    /// Scrolls a cell into view and sets the focus state of its row.
    virtual void FocusCell(int /*row*/, int /*col*/) {}
    /// Shows the message, selects only the row and opens the editor in the cell, so that the user can correct it. First
    /// cancels all pending input in the grid, as `ShowMessage` does.
    virtual void ReportCellError(int code, int row, int col) = 0;
    virtual void ShowMessage(int code) = 0;
};

/// The string table of a project. It has a row for each string ID, and columns for the ID (0), its kind (1), the
/// description (2) and each language (3 and up). It doesn't store the texts: the rows are records below the Strings
/// folder, and the table keeps only the order in which they are shown. The last row is the new-row line, which has no
/// head.
///
/// The edits change both the tree and the grid. The user's edits are commands (STR_..._CMD) that `history` runs. A
/// model has at most one table at a time. Main thread only.
///
///     StringTable table(model, grid);
///     table.Rebuild();
///     table.history.Run(std::make_unique<STR_MOD_CMD>(table, row, 3, u"Bonjour"));
class StringTable : public ITreeListener
{
public:
    static constexpr int ID_COLUMN = 0;
    static constexpr int KIND_COLUMN = 1;
    static constexpr int DESCRIPTION_COLUMN = 2;
    static constexpr int FIRST_LANGUAGE_COLUMN = 3;
    static constexpr size_t MOST_UNDO = 20;

    /// Both must outlive the table.
    StringTable(CResModel &model, IStringGrid &shownIn);
    ~StringTable() = default;
    StringTable(const StringTable &) = delete;
    StringTable &operator=(const StringTable &) = delete;

    CommandHistory history{MOST_UNDO};
    IStringGrid &grid;

    /// Notifies the grid of a batch that lasts as long as this object. A batch within another has no effect.
    class Batch
    {
    public:
        explicit Batch(StringTable &stringTable);
        ~Batch();
        Batch(const Batch &) = delete;
        Batch &operator=(const Batch &) = delete;

    private:
        StringTable &table;
    };

    /// Drops all references to the tree, with the rows, the columns and the history, before a reload destroys the tree.
    void Forget();
    /// Drops what is below that folder of the tree, which is about to be destroyed. For the folder of the rows' heads,
    /// forgets everything; for a language's folder, removes its column and keeps the history; ignores other folders.
    void TreeGoes(const CResFolder &folder) override;
    /// Reads columns and rows from the tree again, in its order. Clears the history if the table has languages, and the
    /// copy set if one of its rows no longer exists.
    void Rebuild();
    /// Changes the order in which rows are shown: the new row i is the old row `order[i]`. `order` must have each row
    /// once. The order in the tree doesn't change.
    void Reorder(const std::vector<int> &order);
    /// Appends a column for a language's folder and clears the history.
    void AddLanguageColumn(const CResFolder &folder);
    /// Removes the column of a language whose folder was or will be deleted. Keeps the history.
    void RemoveLanguageColumn(qint32 language);

    // Look-ups.
    [[nodiscard]] int RowCount() const { return rows.Count(); } ///< without the new-row line
    [[nodiscard]] int ColumnCount() const { return FIRST_LANGUAGE_COLUMN + int(languages.size()); }
    [[nodiscard]] bool IsNewRow(int row) const { return row == RowCount(); }
    /// A row's record in the Description folder, which represents the row; null for the new-row line.
    [[nodiscard]] CStringRes *Head(int row) const { return rows.At(row); }
    /// The folder of a column; null for columns 0 and 1, and for a column whose folder no longer exists.
    [[nodiscard]] CResFolder *ColumnLanguage(int col) const;
    /// The languages of the columns from FIRST_LANGUAGE_COLUMN on.
    [[nodiscard]] const std::vector<qint32> &Languages() const { return languages; }
    /// The text of a column's header.
    [[nodiscard]] QString ColumnTitle(int col) const;
    /// The column of a language; the number of columns when it has none.
    [[nodiscard]] int ColumnOf(qint32 language) const;
    [[nodiscard]] CStringRes *CellRecord(int row, int col) const;
    /// The text that a cell shows; "<New>" in column 0 of the new-row line.
    [[nodiscard]] QString CellText(int row, int col) const;
    /// The text of a cell of the description or a language, which isn't copied: valid until that text changes. Empty
    /// for the other columns.
    [[nodiscard]] QStringView CellView(int row, int col) const;
    /// Returns the row with that ID, whose last known number is `hint`; -1 if there is none. The time doesn't depend on
    /// the size of the table.
    [[nodiscard]] int RowOf(const NarrowText &name, int hint) const;
    [[nodiscard]] CResModel &Model() const { return model; }
    CResFolder *EnsureDescriptionFolder();

    /// Returns a free name for a new string.
    [[nodiscard]] QString DefaultStringId();
    /// Returns a free name for a copy.
    [[nodiscard]] QString CopyStringId(const QString &source);

    // Edits. Each returns 0 or the StringEditCode of a failure; after a failure nothing has changed unless its comment
    // says otherwise.
    [[nodiscard]] int ApplyCellEdit(int row, int col, QString text);
    /// Makes a row with that ID, or with a default ID for an empty text, before the row at `row`.
    [[nodiscard]] int CreateRow(const QString &idText, int row);
    /// Makes a row from the text that was typed into the cell `col` of the new-row line. If the column has no folder,
    /// the edit fails but the new row stays.
    [[nodiscard]] int InsertFromCell(int row, int col, QString text);
    /// Gives a row its earlier name back, unchanged: only names that a user types are converted to upper case and
    /// checked.
    [[nodiscard]] int RestoreId(int row, const NarrowText &name);
    [[nodiscard]] Snapshot SnapshotRow(CStringRes &head) const;
    /// Makes a row from a snapshot. With `keepId` the row is restored: it gets its own ID, which isn't checked, and its
    /// place in the tree is after the row that was before it, or otherwise before the row that was after it. Without
    /// `keepId` it is a copy with another ID. A copy, and a row for which neither of those rows exists, has the same
    /// place in the tree as a row from `CreateRow`. Cells of languages without a column are made too.
    [[nodiscard]] int RestoreRow(const Snapshot &snapshot, int row, bool keepId);
    /// Deletes a row. If `place` isn't null, sets it to the row's place in the tree.
    [[nodiscard]] int DeleteRow(int row, TreePlace *place = nullptr);
    /// Deletes rows from the last to the first and stops at the first failure. `toDelete` is ascending. `places`, if
    /// not null, gets the place of each row at its deletion, when the later rows were already deleted; so the places
    /// are right when the rows are restored from the first to the last.
    [[nodiscard]] int DeleteRows(const std::vector<int> &toDelete, std::vector<TreePlace> *places = nullptr);

    // The rows that Copy has marked, by number. They aren't copies: when one of them is edited or deleted, the whole
    // set is emptied.
    using CopySet = std::map<int, CStringRes *>;
    void Copy(const std::vector<int> &toCopy);
    [[nodiscard]] const CopySet &Copied() const { return copied; }
    void ForgetCopies();
    void ForgetCopiedRow(int row);

private:
    [[nodiscard]] CResFolder *Strings() const;
    /// Returns the head of the row with that ID, from the Description folder, or null.
    [[nodiscard]] CStringRes *HeadOf(const NarrowText &name) const;
    /// Returns the resource before which a row of that place in the tree belongs; null for the end.
    [[nodiscard]] CBaseRes *Behind(const TreePlace &place, int row) const;
    // These two make a head in the tree, before `before` or at the end, but don't add it to the list. The first uses
    // the name as it is. The second checks the ID, and uses a default ID for an empty text.
    [[nodiscard]] int MakeHead(const NarrowText &name, CBaseRes *before, CStringRes *&head);
    [[nodiscard]] int MakeTypedHead(const QString &idText, CBaseRes *before, CStringRes *&head);
    void InsertIntoList(int row, CStringRes *head);
    void FillRow(CStringRes &head, const Snapshot &snapshot);
    void ForgetCopyOf(const CStringRes *head);
    void Show(int row, int col, const QString &text);

    CResModel &model;
    int batches = 0; // the number of open batches, one within another
    RowList rows;
    std::vector<qint32> languages; // of the columns from the first language on
    CopySet copied;
    std::unordered_set<const CStringRes *> copiedHeads;
    CounterNames defaultNames;
    CounterNames copyNames;
    // Each default name with a number below `freshDefault` is taken or was freed.
    quint32 freshDefault = 1;
    std::set<quint32> freedDefaults;
    Notifier<const NarrowText &>::Listener nameFreed;
};
