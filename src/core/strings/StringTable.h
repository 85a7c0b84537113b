#pragma once

#include "CommandHistory.h"
#include "CounterNames.h"
#include "ResModel.h"
#include "RowList.h"

#include <map>
#include <set>
#include <unordered_set>

/// Why an edit of the string table failed: the numbers of the messages that the user sees.
enum StringEditCode : int
{
    EDIT_DONE = 0,
    EDIT_ID_TAKEN = 124,
    EDIT_NO_DEFAULT_ID = 125,
    EDIT_INVALID_ID = 130,
    EDIT_NO_LANGUAGE = 170,
    EDIT_NO_ROW = 171,
};

/// The message of such a number; empty for 0.
[[nodiscard]] QString StringEditMessage(int code);

/// Destroys a chain of string records that stand in no folder, from its first.
struct ChainDeleter
{
    void operator()(CStringRes *first) const { first->DestroyChain(); }
};

/// Where a row was in the tree: the IDs of the rows before and behind it, empty where there was none.
struct TreePlace
{
    NarrowText before;
    NarrowText behind;
};

/// A copy of a row that stands in no folder; its ID blocks no name.
struct Snapshot
{
    std::unique_ptr<CStringRes, ChainDeleter> head; ///< of the chain
    // The row's kind. Copies of one ID share its record, so that one doesn't hold it.
    bool push = false;
    qint32 pushKind = PUSH_NONE;
    TreePlace place; ///< of a row that has been deleted
};

/// What shows a string table: the grid of a window, or nothing at all. Row and column numbers are those of the table.
///
/// A change of rows or columns is told before and after. The table can be asked for any cell in both: in the first it
/// still is as it was, in the second it has changed. `CellShows` tells of each cell that changes after `RowInserted`.
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
    /// All rows get another order: afterwards row i is the one that was row `order[i]`.
    virtual void RowsMoving() {}
    virtual void RowsMoved(const std::vector<int> & /*order*/) {}
    /// All rows and columns are replaced. In the first the table must not be asked: rows may be gone from the tree.
    virtual void TableResetting() {}
    virtual void TableReset() {}
    /// Many notices may come until `BatchEnds`: a grid may put off what it does for each. Batches aren't nested, and no
    /// message comes in one.
    virtual void BatchBegins() {}
    virtual void BatchEnds() {}
    virtual void CellShows(int /*row*/, int /*col*/, const QString & /*text*/) {}
    /// Scrolls a cell into view and gives its row the focus state.
    virtual void FocusCell(int /*row*/, int /*col*/) {}
    /// Shows the message, selects the row alone and opens the editor on the cell, so that the user can correct it. Ends
    /// whatever the grid has pending, as `ShowMessage` does.
    virtual void ReportCellError(int code, int row, int col) = 0;
    virtual void ShowMessage(int code) = 0;
};

/// The string table of a project: a row for each string ID, a column for the ID (0), its kind (1), the description (2)
/// and each language (3 and up). It has no storage of its own: rows are records below the Strings folder, and what
/// stands here is the order in which they are shown. The last row is the new-row line, which has no head.
///
/// The edits change tree and grid together; users' edits are commands (STR_..._CMD) that `history` runs. A model has
/// one table at a time. Main thread only.
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

    /// Both must live longer.
    StringTable(CResModel &model, IStringGrid &shownIn);
    ~StringTable() = default;
    StringTable(const StringTable &) = delete;
    StringTable &operator=(const StringTable &) = delete;

    CommandHistory history{MOST_UNDO};
    IStringGrid &grid;

    /// Tells the grid of a batch for as long as it lives, but for one within another.
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

    /// Lets go of the tree, history and all; a reload is going to destroy it.
    void Forget();
    /// Lets go of what is below that folder of the tree, which is going to be destroyed. With the rows' heads the table
    /// forgets all; with a language its column goes, and the history stays; any other folder is none of its own.
    void TreeGoes(const CResFolder &folder) override;
    /// Takes columns and rows anew from the tree, in its order. Forgets the history of a table with languages, and the
    /// copy set if one of its rows is gone.
    void Rebuild();
    /// Shows the rows in another order: at place i comes the row that is at `order[i]`, which must have each row once.
    /// The tree keeps its order.
    void Reorder(const std::vector<int> &order);
    /// Appends a column for a language's folder, and forgets the history.
    void AddLanguageColumn(const CResFolder &folder);
    /// Takes the column of a language away, whose folder is gone or goes. The history stays.
    void RemoveLanguageColumn(qint32 language);

    // Look-ups.
    [[nodiscard]] int RowCount() const { return rows.Count(); } ///< without the new-row line
    [[nodiscard]] int ColumnCount() const { return FIRST_LANGUAGE_COLUMN + int(languages.size()); }
    [[nodiscard]] bool IsNewRow(int row) const { return row == RowCount(); }
    /// A row's record in the Description folder, which stands for the row; null for the new-row line.
    [[nodiscard]] CStringRes *Head(int row) const { return rows.At(row); }
    /// The folder bound to a column; null for columns 0 and 1 and where there is none any more.
    [[nodiscard]] CResFolder *ColumnLanguage(int col) const;
    /// The languages of the columns from FIRST_LANGUAGE_COLUMN on.
    [[nodiscard]] const std::vector<qint32> &Languages() const { return languages; }
    /// What the header of a column shows.
    [[nodiscard]] QString ColumnTitle(int col) const;
    /// The column of a language; one behind the last when it has none.
    [[nodiscard]] int ColumnOf(qint32 language) const;
    [[nodiscard]] CStringRes *CellRecord(int row, int col) const;
    /// What a cell shows; "<New>" in column 0 of the new-row line.
    [[nodiscard]] QString CellText(int row, int col) const;
    /// The row with that ID, which stood at `hint` before; -1 if there is none. Takes a time that doesn't grow with the
    /// table.
    [[nodiscard]] int RowOf(const NarrowText &name, int hint) const;
    [[nodiscard]] CResModel &Model() const { return model; }
    CResFolder *EnsureDescriptionFolder();

    /// A free name for a new string.
    [[nodiscard]] QString DefaultStringId();
    /// A free name for a copy.
    [[nodiscard]] QString CopyStringId(const QString &source);

    // Edits; each gives 0 or a StringEditCode, and has then changed nothing unless it says so.
    [[nodiscard]] int ApplyCellEdit(int row, int col, QString text);
    /// Makes a row with that ID, or with a default one for an empty text, in front of the row that stands at `row`.
    [[nodiscard]] int CreateRow(const QString &idText, int row);
    /// Makes a row from what was typed into cell `col` of the new-row line. A row that was made stays when the column
    /// turns out to have no folder.
    [[nodiscard]] int InsertFromCell(int row, int col, QString text);
    /// Gives a row the name that it had before, as it was: only what a user types is made upper case and tested.
    [[nodiscard]] int RestoreId(int row, const NarrowText &name);
    [[nodiscard]] int SnapshotRow(CStringRes *head, Snapshot &snapshot);
    /// Makes a row from a snapshot. With `keepId` it comes back as it was: its own ID, which isn't tested, and in the
    /// tree behind the row that it was behind, or else in front of the row that it was in front of. Without, it is a
    /// copy under another ID. Where neither of those rows is there, and for a copy, the place in the tree is that of
    /// `CreateRow`. A language without a column gets its cell too.
    [[nodiscard]] int RestoreRow(const Snapshot &snapshot, int row, bool keepId);
    /// Deletes a row and tells where in the tree it was.
    [[nodiscard]] int DeleteRow(int row, TreePlace *place = nullptr);
    /// From the last to the first; the first failure ends it. `toDelete` is ascending. `places` get where each was when
    /// it was deleted, the later rows being gone already: who restores from the first to the last finds these again.
    [[nodiscard]] int DeleteRows(const std::vector<int> &toDelete, std::vector<TreePlace> *places = nullptr);

    // The rows that Copy has marked, by number. They are live: one that is edited or deleted empties the whole set.
    using CopySet = std::map<int, CStringRes *>;
    void Copy(const std::vector<int> &toCopy);
    [[nodiscard]] const CopySet &Copied() const { return copied; }
    void ForgetCopies();
    void ForgetCopiedRow(int row);

private:
    [[nodiscard]] CResFolder *Strings() const;
    /// The row of that ID in the Description folder, or null.
    [[nodiscard]] CStringRes *HeadOf(const NarrowText &name) const;
    /// In front of what a row of that place in the tree comes; null for the end.
    [[nodiscard]] CBaseRes *Behind(const TreePlace &place, int row) const;
    // Both make a head in the tree, in front of `before` or at the end; it isn't in the list yet. The first takes the
    // ID as it is, the second tests it, and takes a default one for an empty text.
    [[nodiscard]] int MakeHead(const NarrowText &name, CBaseRes *before, CStringRes *&head);
    [[nodiscard]] int MakeTypedHead(const QString &idText, CBaseRes *before, CStringRes *&head);
    void InsertIntoList(int row, CStringRes *head);
    void FillRow(CStringRes &head, const Snapshot &snapshot);
    void ForgetCopyOf(const CStringRes *head);
    void Show(int row, int col, const QString &text);

    CResModel &model;
    int batches = 0; // that are open, one in another
    RowList rows;
    std::vector<qint32> languages; // of the columns from the first language on
    CopySet copied;
    std::unordered_set<const CStringRes *> copiedHeads;
    CounterNames defaultNames;
    CounterNames copyNames;
    // Every default name of a number below `freshDefault` is taken or was freed.
    quint32 freshDefault = 1;
    std::set<quint32> freedDefaults;
    Notifier<const NarrowText &>::Listener nameFreed;
};
