// SPDX-License-Identifier: MIT
#include "TranslationTable.h"

#include "Environment.h"
#include "ResModel.h"
#include "StringFileFormat.h"

#include <algorithm>
#include <utility>

using StringFileFormat::DESCRIPTION;

TranslationTable::TranslationTable(CResModel &document)
    : model(document), strings(document.root.FindFolder(KIND_STRINGS, 2))
{
    for (size_t i = 0; strings && i < strings->subfolders.size(); ++i)
        folders.push_back(strings->subfolders[i].get());
    columns.push_back({Kind::Description, DESCRIPTION, DESCRIPTION, {}, {}});
}

quint32 TranslationTable::ColumnOf(Kind kind, qint32 language, qint32 source, const QString &file, const QString &name)
{
    const auto known = std::find_if(columns.begin(), columns.end(), [&](const Column &column) {
        return column.kind == kind && column.language == language && column.source == source && column.file == file;
    });
    const auto index = quint32(known - columns.begin());
    if (known == columns.end())
        columns.push_back({kind, language, source, file, name});
    return index + 1;
}

void TranslationTable::BeginPart(qint32 language, qint32 source, const QString &file, const QString &name)
{
    (void)ColumnOf(Kind::Source, source, source, {}, {});
    part = ColumnOf(Kind::Target, language, source, file, name);
}

bool TranslationTable::Add(TranslationText &text, int &otherLine)
{
    const quint32 index = RowOf(text);
    Row &row = rows[index];
    if (const Cell *const other = Find(index, part)) {
        otherLine = other->line;
        return false;
    }
    Cell cell{std::move(text.target)};
    cell.column = part;
    cell.line = text.line;
    cell.isStale = IsStaleIn(row, text.source);
    cell.isUnfinished = text.isUnfinished;
    (row.first == NONE ? row.first : cells[row.last].next) = quint32(cells.size());
    row.last = quint32(cells.size());
    cells.push_back(std::move(cell));
    columns[part - 1].isUsed = true;
    return true;
}

quint32 TranslationTable::RowOf(TranslationText &text)
{
    const quint32 next = lastRow + 1; // 0 at first
    if (next < rows.size() && rows[next].id == text.id)
        return lastRow = next;
    const auto [found, isNew] = rowsById.try_emplace(text.id, quint32(rows.size()));
    lastRow = found->second;
    if (isNew)
        rows.push_back(MakeRow(text));
    return lastRow;
}

TranslationTable::Row TranslationTable::MakeRow(TranslationText &text)
{
    Row row;
    row.id = text.id;
    row.sourceLanguage = columns[part - 1].source;
    row.record = model.ids.Find(model.env.WideToNarrow(text.id), ANY_RESOLUTION);
    if (row.record && (folders.empty() || !finder.Find(row.record, *folders.front())))
        row.record = nullptr; // the ID of something else
    if (row.record) {
        row.source = SourceToday(*row.record, row.sourceLanguage);
        return row;
    }
    row.source = text.source;
    row.note = std::move(text.note);
    columns.front().isUsed = true;
    columns[ColumnOf(Kind::Source, row.sourceLanguage, row.sourceLanguage, {}, {}) - 1].isUsed = true;
    return row;
}

QString TranslationTable::SourceToday(const IDRecord &record, qint32 language) const
{
    const auto folder = std::find_if(folders.begin(), folders.end(),
                                     [language](const CResFolder *one) { return one->index == language; });
    const CStringRes *const cell = folder == folders.end() ? nullptr : finder.Find(&record, **folder);
    return cell ? cell->Text().toString() : QString();
}

bool TranslationTable::IsStaleIn(const Row &row, const QString &source) const
{
    const qint32 language = columns[part - 1].source;
    if (language == row.sourceLanguage)
        return source != row.source;
    return row.record && source != SourceToday(*row.record, language);
}

const TranslationTable::Cell *TranslationTable::Find(quint32 row, quint32 column) const
{
    for (quint32 index = rows[row].first; index != NONE; index = cells[index].next) {
        if (cells[index].column == column)
            return &cells[index];
    }
    return nullptr;
}

bool TranslationTable::IsPush(quint32 row) const
{
    return rows[row].record && rows[row].record->push;
}

QString TranslationTable::Text(quint32 row, quint32 column) const
{
    if (!HasCell(row, column))
        return {};
    switch (columns[column - 1].kind) {
    case Kind::Description:
        return rows[row].note;
    case Kind::Source:
        return rows[row].source;
    case Kind::Target:
        break;
    }
    return Find(row, column)->text;
}

ImportPlace TranslationTable::PlaceOf(quint32 row, quint32 column) const
{
    const Cell *cell = Find(row, column);
    cell = cell ? cell : &cells[rows[row].first]; // description and source are beside the first translation
    const Column &place = columns[cell->column - 1];
    return {place.name + u':' + QString::number(cell->line), place.file, cell->line};
}

bool TranslationTable::HasCell(quint32 row, quint32 column) const
{
    if (column == 0 || column > columns.size())
        return false;
    const Column &place = columns[column - 1];
    if (place.kind == Kind::Target)
        return Find(row, column) != nullptr;
    return !rows[row].record && (place.kind == Kind::Description || place.language == rows[row].sourceLanguage);
}

bool TranslationTable::IsStale(quint32 row, quint32 column) const
{
    const Cell *const cell = Find(row, column);
    return cell && cell->isStale;
}

bool TranslationTable::IsUnfinished(quint32 row, quint32 column) const
{
    const Cell *const cell = Find(row, column);
    return cell && cell->isUnfinished;
}
