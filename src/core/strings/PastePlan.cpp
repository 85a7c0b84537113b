// SPDX-License-Identifier: MIT
#include "CellBlock.h"
#include "Environment.h"
#include "IdNames.h"
#include "InOneLine.h"
#include "StringFileFormat.h"
#include "StringTable.h"

#include <QSet>

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace StringFileFormat;

namespace
{

constexpr int NO_COLUMN = -1;
constexpr int NO_ROW = -1;

/// Makes the plan for one block. An object can be used only once.
class PastePlanner
{
public:
    PastePlanner(const StringTable &stringTable, const CellRows &cells, const PasteTarget &pasteTarget)
        : table(stringTable), env(table.Model().env), block(cells), target(pasteTarget)
    {
    }

    PastePlan Make()
    {
        if (block.size() == 1 && block[0].size() == 1) {
            FillSelected(block[0][0]);
        } else if (!block.empty()) {
            ReadTitles();
            if (GoesById())
                PlanById();
            else
                PlanFromFocus();
        }
        return std::move(plan);
    }

private:
    void Refuse(size_t line, const QString &why) { plan.refused << u"Line %1: %2"_s.arg(line + 1).arg(why); }

    // These find the columns for the cells of a line.
    [[nodiscard]] int ColumnOfTitle(const QString &title) const;
    void ReadTitles();
    void TakeColumnsFromFocus(size_t firstCell);
    [[nodiscard]] int RowOfId(const QString &cell) const;
    [[nodiscard]] bool GoesById();

    void FillSelected(const QString &cell);
    void PlanById();
    void PlanFromFocus();
    void PlanLine(size_t line, int row);
    void Change(size_t line, int row, int col, const QString &cell);
    void AddRow(size_t line);
    /// Returns the ID for a new row. If the row can't have that ID, refuses it and returns an empty text.
    [[nodiscard]] QString TakeId(size_t line, const QString &cell);
    /// Returns the word of a kind; empty for an empty text, and for a text that is refused.
    [[nodiscard]] QString TakeKind(size_t line, const QString &cell);

    const StringTable &table;
    const Environment &env;
    const CellRows &block;
    const PasteTarget &target;
    PastePlan plan;
    bool hasTitles = false;
    std::vector<int> columns; // the table's column for each cell of a line; NO_COLUMN for one that isn't pasted
    int idPlace = NO_COLUMN;  // the index of the ID's cell in a line
    std::vector<int> rowOfLine;
    QSet<QString> newIds;
};

int PastePlanner::ColumnOfTitle(const QString &title) const
{
    const QString text = title.trimmed();
    if (text.isEmpty())
        return NO_COLUMN;
    for (int col = 0; col < table.ColumnCount(); ++col) {
        const bool isTaken = std::find(columns.begin(), columns.end(), col) != columns.end();
        if (!isTaken && (EqualsNoCase(text, table.ColumnTitle(col)) ||
                         (col == StringTable::ID_COLUMN && EqualsNoCase(text, ID_WORD))))
            return col;
    }
    return NO_COLUMN;
}

/// Reads the first line as titles if all its texts are titles, or if its first text is the title of the ID column and
/// no row has that text as its ID.
void PastePlanner::ReadTitles()
{
    const QStringList &line = block[0];
    qsizetype known = 0;
    qsizetype unknown = 0;
    for (const QString &title : line) {
        columns.push_back(ColumnOfTitle(title));
        known += columns.back() != NO_COLUMN;
        unknown += columns.back() == NO_COLUMN && !title.trimmed().isEmpty();
    }
    const bool startsWithId = columns[0] == StringTable::ID_COLUMN;
    hasTitles = line.size() > 1 && known > 0 && (unknown == 0 || (startsWithId && RowOfId(line[0]) == NO_ROW));
    if (!hasTitles) {
        columns.clear();
        return;
    }
    for (qsizetype place = 0; place < line.size(); ++place) {
        if (columns[size_t(place)] == StringTable::ID_COLUMN)
            idPlace = int(place);
        else if (columns[size_t(place)] == NO_COLUMN && !line[place].trimmed().isEmpty())
            Refuse(0, u"the column \"%1\" is left out: the table has no column of that title"_s.arg(Cut(line[place])));
    }
}

/// Assigns the cells of a line from `firstCell` on to the columns from the one in focus on.
void PastePlanner::TakeColumnsFromFocus(size_t firstCell)
{
    size_t width = 0;
    for (const QStringList &line : block)
        width = std::max(width, size_t(line.size()));
    columns.resize(firstCell, StringTable::ID_COLUMN);
    // A leading ID has its own column, so the texts are for the columns after that.
    const int first = std::max(target.col, firstCell > 0 ? int(StringTable::ID_COLUMN) + 1 : 0);
    auto col = std::lower_bound(target.columns.begin(), target.columns.end(), first);
    for (; columns.size() < width && col != target.columns.end(); ++col)
        columns.push_back(*col);
    if (columns.size() < width)
        plan.refused << u"The block has %1 columns, but there is room for %2 only; the others are left out"_s.arg(width)
                            .arg(columns.size());
    const auto id = std::find(columns.begin(), columns.end(), int(StringTable::ID_COLUMN));
    idPlace = id == columns.end() ? NO_COLUMN : int(id - columns.begin());
}

/// Returns the row whose ID is the text of a cell, exactly or as a user could type it; NO_ROW if there is none.
int PastePlanner::RowOfId(const QString &cell) const
{
    const QString trimmed = cell.trimmed();
    for (const QString &text : {cell, trimmed, ToUpperSimple(trimmed)}) {
        const NarrowText name = env.WideToNarrow(text);
        const int row = text.isEmpty() ? NO_ROW : table.RowOf(name, NO_ROW);
        if (row != NO_ROW && env.NarrowToWide(name) == text) // the code page has all characters
            return row;
    }
    return NO_ROW;
}

/// Returns whether the block is pasted by ID, and finds the rows of all lines. A text can look like an ID: without
/// titles at least half of the lines must have an ID of the table, unless they are pasted over IDs.
bool PastePlanner::GoesById()
{
    if (hasTitles && idPlace == NO_COLUMN)
        return false;
    const size_t first = hasTitles ? 1 : 0;
    const qsizetype place = hasTitles ? idPlace : 0;
    size_t filled = 0;
    size_t known = 0;
    bool isOneColumn = true;
    rowOfLine.assign(block.size(), NO_ROW);
    for (size_t line = first; line < block.size(); ++line) {
        rowOfLine[line] = RowOfId(block[line].value(place));
        filled += !block[line].value(place).trimmed().isEmpty();
        known += rowOfLine[line] != NO_ROW;
        isOneColumn = isOneColumn && block[line].size() == 1;
    }
    if (hasTitles || (target.col == StringTable::ID_COLUMN && known > 0))
        return true;
    return !isOneColumn && known > 0 && known * 2 >= filled;
}

void PastePlanner::FillSelected(const QString &cell)
{
    columns = {target.col};
    if (target.col == StringTable::ID_COLUMN)
        idPlace = 0;
    if (target.selected.empty())
        return PlanLine(0, table.Head(target.row) ? target.row : NO_ROW);
    for (const int row : target.selected) {
        Change(0, row, target.col, cell);
        if (!plan.refused.isEmpty()) // the other rows would be refused too
            return;
    }
}

void PastePlanner::PlanById()
{
    if (!hasTitles)
        TakeColumnsFromFocus(1);
    QSet<int> seen;
    for (size_t line = hasTitles ? 1 : 0; line < block.size(); ++line) {
        const int row = rowOfLine[line];
        const qsizetype before = seen.size();
        if (row != NO_ROW)
            seen.insert(row);
        if (row != NO_ROW && seen.size() == before)
            Refuse(line, u"an earlier line has the ID %1"_s.arg(Cut(block[line][idPlace].trimmed())));
        else
            PlanLine(line, row);
    }
}

void PastePlanner::PlanFromFocus()
{
    columns.clear();
    TakeColumnsFromFocus(0);
    auto row = table.Head(target.row) ? std::lower_bound(target.shown.begin(), target.shown.end(), target.row)
                                      : target.shown.end();
    for (size_t line = hasTitles ? 1 : 0; line < block.size(); ++line)
        PlanLine(line, row == target.shown.end() ? NO_ROW : *row++);
}

/// Plans a line for a row; for NO_ROW the line becomes a new row.
void PastePlanner::PlanLine(size_t line, int row)
{
    if (row == NO_ROW)
        return AddRow(line);
    for (qsizetype place = 0; place < std::min(block[line].size(), qsizetype(columns.size())); ++place) {
        const bool isIdOfRow = int(place) == idPlace && !rowOfLine.empty() && rowOfLine[line] == row;
        if (columns[size_t(place)] != NO_COLUMN && !isIdOfRow)
            Change(line, row, columns[size_t(place)], block[line][place]);
    }
}

void PastePlanner::Change(size_t line, int row, int col, const QString &cell)
{
    const QString now = table.CellText(row, col);
    if (col == StringTable::ID_COLUMN) {
        if (cell != now && ToUpperSimple(cell.trimmed()) != now)
            Refuse(line, u"the ID %1 is kept: pasting doesn't rename rows"_s.arg(Cut(now)));
        return;
    }
    const QString text = col == StringTable::KIND_COLUMN ? TakeKind(line, cell) : InOneLine(cell);
    if (text != now && (col != StringTable::KIND_COLUMN || !text.isEmpty()))
        plan.changes.push_back({row, col, text});
}

void PastePlanner::AddRow(size_t line)
{
    const QStringList &cells = block[line];
    if (std::all_of(cells.begin(), cells.end(), [](const QString &cell) { return cell.trimmed().isEmpty(); }))
        return;
    NewRow row;
    if (idPlace != NO_COLUMN) {
        row.id = TakeId(line, cells.value(idPlace));
        if (row.id.isEmpty())
            return;
    }
    for (qsizetype place = 0; place < std::min(cells.size(), qsizetype(columns.size())); ++place) {
        const int col = columns[size_t(place)];
        if (col == StringTable::KIND_COLUMN)
            row.push = TakeKind(line, cells[place]) == PUSH_WORD;
        else if (col >= StringTable::DESCRIPTION_COLUMN && !cells[place].isEmpty())
            row.texts.emplace_back(col, InOneLine(cells[place]));
    }
    if (!row.id.isEmpty() || row.push || !row.texts.empty())
        plan.rows.push_back(std::move(row));
}

QString PastePlanner::TakeId(size_t line, const QString &cell)
{
    const QString id = ToUpperSimple(cell.trimmed());
    if (id.isEmpty()) {
        Refuse(line, u"the line has no ID"_s);
    } else if (!IsValidIdName(id)) {
        Refuse(line, u"\"%1\" is not a valid ID: an ID has 1 to 64 letters, digits and \"_\", and doesn't begin with "
                     "a digit"_s.arg(Cut(id)));
    } else if (table.Model().IsIdInUse(id)) {
        Refuse(line,
               (table.RowOf(env.WideToNarrow(id), NO_ROW) == NO_ROW ? u"a resource of another kind has the ID %1"_s
                                                                    : u"there is already a row with the ID %1"_s)
                   .arg(id));
    } else if (newIds.contains(id)) {
        Refuse(line, u"an earlier line has the ID %1"_s.arg(id));
    } else {
        newIds.insert(id);
        return id;
    }
    return {};
}

QString PastePlanner::TakeKind(size_t line, const QString &cell)
{
    const QString text = cell.trimmed();
    for (const QStringView word : {NORMAL_WORD, PUSH_WORD}) {
        if (EqualsNoCase(text, word))
            return word.toString();
    }
    if (!text.isEmpty())
        Refuse(line,
               u"\"%1\" is not a resource type; the types are %2 and %3"_s.arg(Cut(text), NORMAL_WORD, PUSH_WORD));
    return {};
}

} // namespace

PastePlan PlanPaste(const StringTable &table, const CellRows &block, const PasteTarget &target)
{
    return PastePlanner(table, block, target).Make();
}
