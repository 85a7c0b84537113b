// SPDX-License-Identifier: MIT
#include "ImportPlan.h"

#include "Environment.h"
#include "IdNames.h"
#include "LanguageFolders.h"
#include "ResModel.h"
#include "RowBuilder.h"
#include "StringFileFormat.h"

#include <algorithm>
#include <utility>

using namespace StringFileFormat;

namespace
{

/// Returns whether a text can be one field of a string file.
bool Fits(QStringView text)
{
    return std::none_of(text.begin(), text.end(), [](QChar c) { return c == u'\t' || c == u'\r' || c == u'\n'; });
}

QString KindWord(bool push)
{
    return (push ? PUSH_WORD : NORMAL_WORD).toString();
}

} // namespace

ImportPlan::ImportPlan(CResModel &document, const IImportSource &texts, QString filePath)
    : model(document), source(texts), file(std::move(filePath))
{
}

void ImportPlan::AddLanguage(qint32 language, const QString &title, quint32 column)
{
    const CResFolder *const strings = model.root.FindFolder(KIND_STRINGS, 2);
    CResFolder *const folder = strings ? strings->FindFolder(KIND_LANGUAGE, language, 1) : nullptr;
    const auto known = std::find_if(languages.begin(), languages.end(),
                                    [&](const Language &other) { return other.number == language; });
    isRepeated |= known != languages.end();
    const auto first = size_t(known - languages.begin());
    languages.push_back({language, folder ? folder->title : title, column, first});
    folders.push_back(folder);
    if (folder)
        existing.push_back(folder);
}

bool ImportPlan::HasFolder(const CResFolder &folder) const
{
    return std::find(existing.begin(), existing.end(), &folder) != existing.end();
}

void ImportPlan::AddLostRow(quint32 row, CellFate fate)
{
    Row lost;
    lost.row = row;
    lost.lostAs = fate;
    rows.push_back(lost);
}

size_t ImportPlan::FirstOf(const NarrowText &name) const
{
    const auto [begin, end] = rowsByName.equal_range(qHash(name));
    const auto found = std::find_if(begin, end, [&](const auto &known) {
        return model.env.WideToNarrow(source.Id(rows[known.second].row)) == name;
    });
    return found == end ? NONE : found->second;
}

void ImportPlan::AddRow(quint32 row, bool push)
{
    const QString id = source.Id(row);
    if (!Fits(id)) {
        Refuse(row, id, ID_WORD.toString());
        return AddLostRow(row, CellFate::Refused);
    }
    const NarrowText name = model.env.WideToNarrow(id);
    const IDRecord *const record = model.ids.Find(name, ANY_RESOLUTION);
    Row planned;
    planned.first = FirstOf(name);
    const bool isFirst = planned.first == NONE;
    const bool hasHead = !isFirst || (record && folders.front() && cells.Find(record, *folders.front()));
    if (!hasHead && model.ids.unique && model.ids.FindName(name)) {
        model.env.Report({"import.id-conflict", Severity::Error, file, int(row) + 1, id, {}},
                         "ID conflicts - %s (Line %d).", Shown(id).constData(), int(row) + 1);
        return AddLostRow(row);
    }
    planned.row = row;
    planned.isLost = false;
    planned.isNew = !record && isFirst;
    planned.push = push;
    planned.firstFate = fates.size();
    if (isFirst) {
        planned.first = planned.latest = rows.size();
        planned.wasPush = record && record->push;
        rowsByName.emplace(qHash(name), rows.size());
    } else {
        Row &first = rows[planned.first];
        if (first.latest == planned.first)
            NotePlaces(first);
        planned.wasPush = rows[first.latest].push;
        first.latest = rows.size();
    }
    planned.changes =
        planned.isNew || push != planned.wasPush || (push && (!record || record->pushKind != PUSH_STRING));
    PlanTexts(planned, record, id);
    rows.push_back(planned);
}

void ImportPlan::PlanTexts(Row &row, const IDRecord *record, const QString &id)
{
    const bool isNoted = isRepeated || row.first != rows.size();
    for (size_t i = 0; i < languages.size(); ++i) {
        const QString text = source.Text(row.row, languages[i].column);
        if (text.isEmpty() && languages[i].number != DESCRIPTION) {
            fates.push_back(PASSED_OVER);
            continue;
        }
        const std::optional<QString> before = TextBefore(row, i, record);
        CellFate fate = before ? CellFate::Filled : CellFate::New;
        if (before && *before == text)
            fate = CellFate::Same;
        else if (before && !before->isEmpty())
            fate = CellFate::Kept;
        else if (!Fits(text))
            fate = CellFate::Refused;
        fates.push_back(quint8(fate));
        if (fate == CellFate::Refused)
            Refuse(row.row, id, languages[i].number == DESCRIPTION ? DESCRIPTION_WORD.toString() : languages[i].title);
        if (fate != CellFate::Filled && fate != CellFate::New)
            continue;
        row.changes = true;
        if (isNoted && !text.isEmpty())
            places.try_emplace(KeyOf(row, i), Place{row.row, languages[i].column});
    }
}

void ImportPlan::NotePlaces(const Row &row)
{
    for (size_t i = 0; i < languages.size(); ++i) {
        const auto fate = CellFate(fates[row.firstFate + i]);
        const quint32 column = languages[i].column;
        if ((fate == CellFate::Filled || fate == CellFate::New) && !source.Text(row.row, column).isEmpty())
            places.try_emplace(KeyOf(row, i), Place{row.row, column});
    }
}

void ImportPlan::Refuse(quint32 row, const QString &id, const QString &language)
{
    const int line = int(row) + 1;
    refused.append(id + QStringLiteral(" (") + language + u')');
    model.env.Report({"import.text-refused", Severity::Error, file, line, id, {}},
                     "a string can't hold a tab or a line end - %s, %s (Line %d).", Shown(id).constData(),
                     Shown(language).constData(), line);
}

quint64 ImportPlan::KeyOf(const Row &row, size_t language) const
{
    return quint64(row.first) << 32 | languages[language].first;
}

std::optional<QString> ImportPlan::TextBefore(const Row &row, size_t language, const IDRecord *record) const
{
    CResFolder *const folder = folders[language];
    const CStringRes *const cell = record && folder ? cells.Find(record, *folder) : nullptr;
    if (cell && !cell->text.isEmpty())
        return cell->text;
    const auto found = places.empty() ? places.end() : places.find(KeyOf(row, language));
    if (found != places.end()) {
        const auto [otherRow, otherColumn] = found->second;
        if (otherRow < row.row || (otherRow == row.row && otherColumn < languages[language].column))
            return source.Text(otherRow, otherColumn);
    }
    const bool isMade =
        languages[language].number == DESCRIPTION && rows.size() > row.first && rows[row.first].row < row.row;
    return cell || isMade ? std::optional<QString>(QString()) : std::nullopt;
}

std::vector<ImportPlan::Cell> ImportPlan::Cells(size_t index) const
{
    const Row &row = rows[index];
    std::vector<Cell> all;
    quint32 rest = 1;
    if (!row.isLost) {
        const IDRecord *const record = model.ids.Find(model.env.WideToNarrow(source.Id(row.row)), ANY_RESOLUTION);
        PutKind(row, all);
        for (size_t i = 0; i < languages.size(); ++i) {
            const quint32 column = languages[i].column;
            const quint8 fate = fates[row.firstFate + i];
            const QString text = source.Text(row.row, column);
            const QString before = TextBefore(row, i, record).value_or(QString());
            const CellFate shown = fate == PASSED_OVER ? CellFate::Kept : CellFate(fate);
            if (!text.isEmpty() || (shown == CellFate::Kept && !before.isEmpty()))
                all.push_back({row.row, column, shown, before, text});
        }
        rest = languages.back().column + 1;
    }
    for (quint32 column = rest; column < source.EndColumn(row.row); ++column) {
        if (const QString text = source.Text(row.row, column); !text.isEmpty())
            all.push_back({row.row, column, row.lostAs, {}, text});
    }
    return all;
}

void ImportPlan::PutKind(const Row &row, std::vector<Cell> &all) const
{
    const QString word = KindWord(row.push);
    if (!row.isNew && row.wasPush != row.push) {
        all.push_back({row.row, kindColumn.value_or(0), CellFate::Replaced, KindWord(row.wasPush), word});
        return;
    }
    const QString text = kindColumn ? source.Text(row.row, *kindColumn) : QString();
    const CellFate fate = text != word ? CellFate::Nowhere : row.isNew ? CellFate::New : CellFate::Same;
    if (!text.isEmpty())
        all.push_back({row.row, *kindColumn, fate, {}, text});
}

void ImportPlan::Apply()
{
    rowsByName = {};
    places = {};
    LanguageFolders made(model);
    std::vector<CResFolder *> targets;
    for (const Language &language : languages)
        targets.push_back(&made.Ensure(language.number, language.title));
    CellFinder finder(targets);
    for (const Row &row : rows) {
        if (row.changes)
            ApplyRow(row, targets, finder);
    }
}

void ImportPlan::ApplyRow(const Row &row, const std::vector<CResFolder *> &targets, CellFinder &finder)
{
    const NarrowText name = model.env.WideToNarrow(source.Id(row.row));
    IDRecord *record = model.ids.Find(name, ANY_RESOLUTION);
    RowBuilder builder(model, name);
    for (size_t i = 0; i < languages.size(); ++i) {
        const quint8 fate = fates[row.firstFate + i];
        const bool isTaken = fate == quint8(CellFate::Filled) || fate == quint8(CellFate::New);
        if (fate == PASSED_OVER)
            continue;
        CStringRes *cell = record ? finder.Find(record, *targets[i]) : nullptr;
        if (cell && isTaken && cell->text.isEmpty())
            cell->SetText(source.Text(row.row, languages[i].column));
        if (!cell && (isTaken || languages[i].number == DESCRIPTION)) {
            cell = builder.Add(*targets[i], isTaken ? source.Text(row.row, languages[i].column) : QString());
            if (!cell)
                return;
            finder.Added(cell);
        }
        if (!cell)
            continue;
        builder.ContinueBehind(*cell);
        record = cell->Id();
    }
    record->push = row.push;
    if (row.push)
        record->pushKind = PUSH_STRING;
}
