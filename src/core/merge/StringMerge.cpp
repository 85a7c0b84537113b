// SPDX-License-Identifier: MIT
#include "StringMerge.h"

#include "MergeOrder.h"
#include "StringFileFormat.h"

#include <QHash>

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace StringFileFormat;

namespace
{

constexpr MergeSide ALL_SIDES[] = {BASE, OURS, THEIRS};

} // namespace

QString StringMerge::Run()
{
    if (const QString refusal = MatchRows(); !refusal.isEmpty())
        return refusal;
    columns = MergeColumns(tables, rows);
    hasType = tables[OURS].hasType || tables[THEIRS].hasType;
    for (const MergeSide side : ALL_SIDES)
        isOfMergedForm[side] = HasFormOfMerged(side);
    std::vector<bool> isKept;
    isKept.reserve(rows.size());
    for (const MergeRow &row : rows)
        isKept.push_back(IsKept(row));
    const std::vector<int> order = MergeOrder(orders, isKept);
    PutHeader();
    for (const int place : order)
        PutRow(rows[size_t(place)]);
    Put(END_WORD.toString() + u'\t' + QString::number(order.size()));
    return {};
}

QString StringMerge::MatchRows()
{
    QHash<QStringView, int> known;
    const size_t expected = std::max(tables[OURS].rows.size(), tables[THEIRS].rows.size());
    known.reserve(qsizetype(expected + expected / 8));
    rows.reserve(expected + expected / 8);
    qsizetype size = 0;
    for (const MergeSide side : ALL_SIDES) {
        const std::vector<MergeTable::Row> &all = tables[side].rows;
        orders[side].reserve(all.size());
        for (size_t i = 0; i < all.size(); ++i) {
            const auto found = known.constFind(all[i].id);
            const int place = found == known.cend() ? int(rows.size()) : *found;
            if (found == known.cend()) {
                known.insert(all[i].id, place);
                rows.push_back({-1, -1, -1});
            }
            int &entry = rows[size_t(place)][side];
            if (entry >= 0)
                return u"%1, line %2: %3 is in line %4 too; keep one of the two rows"_s.arg(
                    QLatin1String(SIDE_NAMES[side]), QString::number(all[i].lineNumber), Cut(all[i].id),
                    QString::number(all[size_t(entry)].lineNumber));
            entry = int(i);
            orders[side].push_back(place);
            size += side == BASE ? 0 : all[i].line.size();
        }
    }
    text.reserve(size / 2 + size / 8);
    return {};
}

bool StringMerge::HasFormOfMerged(MergeSide side) const
{
    if (tables[side].hasType != hasType || tables[side].columns.size() != columns.size())
        return false;
    for (size_t i = 0; i < columns.size(); ++i) {
        if (columns[i].in[side] != int(i))
            return false;
    }
    return true;
}

void StringMerge::Load(const MergeRow &row, MergeSide side)
{
    Cells &loaded = cells[side];
    const size_t count = MergeTable::FIRST_LANGUAGE + columns.size();
    if (row[side] < 0) {
        loaded.assign(count, {});
        return;
    }
    tables[side].Split(tables[side].rows[size_t(row[side])], loaded);
    if (isOfMergedForm[side])
        return;
    const Cells own = loaded;
    loaded.resize(count);
    for (size_t i = 0; i < columns.size(); ++i) {
        const int place = columns[i].in[side];
        loaded[MergeTable::FIRST_LANGUAGE + i] =
            place < 0 ? QStringView() : own[size_t(MergeTable::FIRST_LANGUAGE + place)];
    }
}

bool StringMerge::HasEqualLines(const MergeRow &row, MergeSide one, MergeSide other) const
{
    return row[one] >= 0 && row[other] >= 0 &&
           tables[one].rows[size_t(row[one])].Body() == tables[other].rows[size_t(row[other])].Body();
}

/// Returns whether one side has no cell of a row that is different in the base. The row is in both. Languages that the
/// side has dropped don't count.
bool StringMerge::IsUnchanged(const MergeRow &row, MergeSide side)
{
    if (isOfMergedForm[side] && isOfMergedForm[BASE] && HasEqualLines(row, BASE, side))
        return true;
    Load(row, BASE);
    Load(row, side);
    for (size_t i = 0; i < cells[side].size(); ++i) {
        const bool isThere = i < MergeTable::FIRST_LANGUAGE || columns[i - MergeTable::FIRST_LANGUAGE].in[side] >= 0;
        if (isThere && cells[side][i] != cells[BASE][i])
            return false;
    }
    return true;
}

/// A row is gone if a side has deleted it and the other hasn't changed it.
bool StringMerge::IsKept(const MergeRow &row)
{
    if (row[BASE] < 0 || (row[OURS] >= 0 && row[THEIRS] >= 0))
        return true;
    if (row[OURS] < 0 && row[THEIRS] < 0)
        return false;
    return !IsUnchanged(row, row[OURS] >= 0 ? OURS : THEIRS);
}

QStringView StringMerge::IdOf(const MergeRow &row) const
{
    const MergeSide side = row[OURS] >= 0 ? OURS : row[THEIRS] >= 0 ? THEIRS : BASE;
    return tables[side].rows[size_t(row[side])].id;
}

void StringMerge::PutRow(const MergeRow &row)
{
    if (PutUnchangedLine(row))
        return;
    for (const MergeSide side : ALL_SIDES)
        Load(row, side);
    if (row[BASE] >= 0 && (row[OURS] < 0 || row[THEIRS] < 0))
        PutDeletedAndChanged(row);
    else
        PutMergedCells(row);
}

/// Puts the line of one side if comparing whole lines shows that it is the merged row. False otherwise.
bool StringMerge::PutUnchangedLine(const MergeRow &row)
{
    MergeSide from = OURS;
    if (row[BASE] < 0 && row[THEIRS] < 0)
        from = OURS;
    else if (row[BASE] < 0 && row[OURS] < 0)
        from = THEIRS;
    else if (HasEqualLines(row, OURS, THEIRS) || HasEqualLines(row, BASE, THEIRS))
        from = OURS;
    else if (HasEqualLines(row, BASE, OURS))
        from = THEIRS;
    else
        return false;
    if (row[from] < 0 || !std::all_of(isOfMergedForm.begin(), isOfMergedForm.end(), [](bool is) { return is; }))
        return false;
    Put(tables[from].rows[size_t(row[from])].Body());
    return true;
}

/// Merges a cell of a row that is new on a side, or in all three versions. Returns false for a conflict.
bool StringMerge::MergeCell(const MergeRow &row, size_t cell, QStringView &merged) const
{
    const QStringView base = cells[BASE][cell];
    const QStringView ours = cells[OURS][cell];
    const QStringView theirs = cells[THEIRS][cell];
    merged = ours;
    if (ours == theirs)
        return true;
    for (const MergeSide dropping : {OURS, THEIRS}) {
        if (cell < MergeTable::FIRST_LANGUAGE || !columns[cell - MergeTable::FIRST_LANGUAGE].IsDroppedBy(dropping))
            continue;
        // The language stays because of a text of the other side. Texts that this side hasn't changed stay with it.
        merged = dropping == OURS ? theirs : ours;
        return merged == base || merged.isEmpty();
    }
    const bool isInBase = row[BASE] >= 0;
    if (row[THEIRS] < 0 || (isInBase && theirs == base))
        return true;
    if (row[OURS] < 0 || (isInBase && ours == base)) {
        merged = theirs;
        return true;
    }
    if (isInBase || cell == MergeTable::TYPE || (!ours.isEmpty() && !theirs.isEmpty()))
        return false;
    merged = ours.isEmpty() ? theirs : ours;
    return true;
}

void StringMerge::PutMergedCells(const MergeRow &row)
{
    Cells ours(cells[BASE].size());
    Cells theirs(cells[BASE].size());
    QStringList inConflict;
    for (size_t i = 0; i < ours.size(); ++i) {
        if (MergeCell(row, i, ours[i])) {
            theirs[i] = ours[i];
        } else if (onConflict == OnConflict::KeepBase) {
            ours[i] = i == MergeTable::TYPE && row[BASE] < 0 ? NORMAL_WORD : cells[BASE][i];
        } else {
            inConflict.append(CellName(i));
            ours[i] = cells[OURS][i];
            theirs[i] = cells[THEIRS][i];
        }
    }
    const QStringView id = IdOf(row);
    if (!inConflict.isEmpty()) {
        conflicts.append(u"%1: %2"_s.arg(Cut(id), inConflict.join(u", ")));
        PutConflict(RowText(id, ours), RowText(id, theirs));
        return;
    }
    // A row that is as on one side keeps its line, which may be shorter than line 2.
    for (const MergeSide side : {OURS, THEIRS}) {
        if (row[side] >= 0 && isOfMergedForm[side] && cells[side] == ours)
            return Put(tables[side].rows[size_t(row[side])].Body());
    }
    Put(RowText(id, ours));
}

void StringMerge::PutDeletedAndChanged(const MergeRow &row)
{
    const QStringView id = IdOf(row);
    if (onConflict == OnConflict::KeepBase)
        return Put(RowText(id, cells[BASE]));
    const bool isOursDeleted = row[OURS] < 0;
    conflicts.append(
        u"%1: deleted in %2, changed in %3"_s.arg(Cut(id), QLatin1String(SIDE_NAMES[isOursDeleted ? OURS : THEIRS]),
                                                  QLatin1String(SIDE_NAMES[isOursDeleted ? THEIRS : OURS])));
    PutConflict(isOursDeleted ? QString() : RowText(id, cells[OURS]),
                isOursDeleted ? RowText(id, cells[THEIRS]) : QString());
}

/// Puts two versions of a line between markers. A version without a text has no line.
void StringMerge::PutConflict(const QString &ours, const QString &theirs)
{
    Put(QString::fromLatin1(MARKER_OURS));
    if (!ours.isEmpty())
        Put(ours);
    Put(QString::fromLatin1(MARKER_BETWEEN));
    if (!theirs.isEmpty())
        Put(theirs);
    Put(QString::fromLatin1(MARKER_THEIRS));
}

QString StringMerge::RowText(QStringView id, const Cells &row) const
{
    QString line = id.toString();
    for (size_t i = hasType ? MergeTable::TYPE : MergeTable::DESCRIPTION; i < row.size(); ++i)
        line.append(u'\t').append(row[i]);
    return line;
}

void StringMerge::PutHeader()
{
    if (isOfMergedForm[OURS] && LanguagesLine(true) == LanguagesLine(false) &&
        std::equal(columns.begin(), columns.end(), tables[OURS].columns.begin(),
                   [](const MergedColumn &one, const MergeTable::Column &other) { return one.ours == other.header; })) {
        Put(tables[OURS].lines[0]);
        Put(tables[OURS].lines[1]);
        return;
    }
    Put(COUNT_WORD.toString() + u'\t' + QString::number(columns.size()));
    const QString ours = LanguagesLine(true);
    const QString theirs = LanguagesLine(false);
    if (ours == theirs || onConflict == OnConflict::KeepBase)
        return Put(ours);
    conflicts.append(u"the names of the languages in line 2"_s);
    PutConflict(ours, theirs);
}

QString StringMerge::LanguagesLine(bool isOurs) const
{
    QString line = ID_WORD.toString();
    if (hasType)
        line.append(u'\t').append(TYPE_WORD);
    line.append(u'\t').append(DESCRIPTION_WORD);
    for (const MergedColumn &column : columns)
        line.append(u'\t').append(isOurs ? column.ours : column.theirs);
    return line;
}

QString StringMerge::CellName(size_t cell) const
{
    if (cell == MergeTable::TYPE)
        return TYPE_WORD.toString();
    if (cell == MergeTable::DESCRIPTION)
        return DESCRIPTION_WORD.toString();
    return Cut(columns[cell - MergeTable::FIRST_LANGUAGE].ours);
}
