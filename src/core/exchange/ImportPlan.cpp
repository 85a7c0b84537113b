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

constexpr bool IsTaken(quint8 fate)
{
    return fate == quint8(CellFate::Filled) || fate == quint8(CellFate::New) || fate == quint8(CellFate::Replaced);
}

/// Returns whether the table has the text after the import.
constexpr bool IsChosen(quint8 fate)
{
    return IsTaken(fate) || fate == quint8(CellFate::Same);
}

} // namespace

ImportPlan::ImportPlan(CResModel &document, const IImportSource &texts, QString filePath, ImportOptions importOptions)
    : model(document), source(texts), file(std::move(filePath)), options(std::move(importOptions))
{
}

void ImportPlan::AddLanguage(qint32 language, const QString &title, quint32 column, bool isAlwaysWanted)
{
    const CResFolder *const strings = model.root.FindFolder(KIND_STRINGS, 2);
    CResFolder *const folder = strings ? strings->FindFolder(KIND_LANGUAGE, language, 1) : nullptr;
    const auto known = std::find_if(languages.begin(), languages.end(),
                                    [&](const Language &other) { return other.number == language; });
    isRepeated |= known != languages.end();
    const auto first = size_t(known - languages.begin());
    const bool isWanted = isAlwaysWanted || language == DESCRIPTION || options.Wants(language);
    languages.push_back({language, folder ? folder->title : title, column, first, isWanted});
    folders.push_back(folder);
    if (folder)
        existing.push_back(folder);
}

bool ImportPlan::HasFolder(const CResFolder &folder) const
{
    return std::find(existing.begin(), existing.end(), &folder) != existing.end();
}

std::optional<qint32> ImportPlan::LanguageOf(quint32 column) const
{
    const auto found = std::find_if(languages.begin(), languages.end(),
                                    [column](const Language &language) { return language.column == column; });
    return found == languages.end() ? std::nullopt : std::optional(found->number);
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
        Refuse(row, 0, id, ID_WORD.toString());
        return AddLostRow(row, CellFate::Refused);
    }
    const NarrowText name = model.env.WideToNarrow(id);
    const IDRecord *const record = model.ids.Find(name, ANY_RESOLUTION);
    Row planned;
    planned.first = FirstOf(name);
    const bool isFirst = planned.first == NONE;
    const bool hasHead = !isFirst || (record && folders.front() && cells.Find(record, *folders.front()));
    if (!hasHead && model.ids.unique && model.ids.FindName(name)) {
        const ImportPlace place = source.PlaceOf(row, 0);
        if (place.file.isEmpty())
            model.env.Report({"import.id-conflict", Severity::Error, file, place.line, id, {}},
                             "ID conflicts - %s (Line %d).", Shown(id).constData(), place.line);
        else
            model.env.Report({"import.id-conflict", Severity::Error, place.file, place.line, id, {}},
                             "%s: another resource has the ID %s.", Shown(place.name).constData(),
                             Shown(id).constData());
        return AddLostRow(row);
    }
    if (options.onlyExisting && !record)
        return AddLostRow(row);
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
        Language &language = languages[i];
        const bool isDescription = language.number == DESCRIPTION;
        if (!source.HasCell(row.row, language.column)) {
            fates.push_back(isDescription ? quint8(CellFate::Same) : quint8(PASSED_OVER));
            continue;
        }
        if (!isNoted && IsUnchanged(row, i, record)) {
            fates.push_back(quint8(CellFate::Same));
            ++counts[size_t(CellFate::Same)];
            continue;
        }
        const QString text = source.Text(row.row, language.column);
        if (text.isEmpty() && !isDescription) {
            fates.push_back(PASSED_OVER);
            continue;
        }
        const Before before = TextBefore(row, i, record);
        const CellFate fate = FateOf(row, i, text, before);
        fates.push_back(quint8(fate));
        ++counts[size_t(fate)];
        if (fate == CellFate::Refused)
            Refuse(row.row, language.column, id, isDescription ? DESCRIPTION_WORD.toString() : language.title);
        if (fate == CellFate::Stale)
            TellStale(row.row, language.column, id);
        if (fate == CellFate::Kept && before.source && !text.isEmpty())
            TellTwice(row.row, language.column, id, *before.source);
        if (isNoted && IsChosen(quint8(fate)) && !text.isEmpty())
            places.try_emplace(KeyOf(row, i), Place{row.row, language.column});
        if (IsTaken(quint8(fate)))
            row.changes = language.isUsed = true;
    }
}

bool ImportPlan::IsUnchanged(const Row &row, size_t language, const IDRecord *record) const
{
    const CStringRes *const cell =
        record && folders[language] && languages[language].isWanted ? cells.Find(record, *folders[language]) : nullptr;
    return cell && cell->HasText() && source.HasText(row.row, languages[language].column, cell->Text());
}

CellFate ImportPlan::FateOf(const Row &row, size_t language, const QString &text, const Before &before) const
{
    const quint32 column = languages[language].column;
    const bool isMade = !folders[language] && languages[language].number != DESCRIPTION;
    if (!languages[language].isWanted || (options.onlyExisting && isMade))
        return CellFate::Nowhere;
    if (before.text && *before.text == text)
        return CellFate::Same;
    if (!options.acceptStale && source.IsStale(row.row, column))
        return CellFate::Stale;
    if (!options.includeUnfinished && source.IsUnfinished(row.row, column))
        return CellFate::Unfinished;
    const bool hasOther = before.text && !before.text->isEmpty();
    if (hasOther && (!options.replace || before.source || text.isEmpty()))
        return CellFate::Kept;
    if (!Fits(text))
        return CellFate::Refused;
    return hasOther ? CellFate::Replaced : before.text ? CellFate::Filled : CellFate::New;
}

void ImportPlan::NotePlaces(const Row &row)
{
    for (size_t i = 0; i < languages.size(); ++i) {
        const quint32 column = languages[i].column;
        if (IsChosen(fates[row.firstFate + i]) && !source.Text(row.row, column).isEmpty())
            places.try_emplace(KeyOf(row, i), Place{row.row, column});
    }
}

void ImportPlan::Refuse(quint32 row, quint32 column, const QString &id, const QString &language)
{
    const ImportPlace place = source.PlaceOf(row, column);
    refused.append(id + QStringLiteral(" (") + language + u')');
    if (place.file.isEmpty())
        model.env.Report({"import.text-refused", Severity::Error, file, place.line, id, {}},
                         "a string can't hold a tab or a line end - %s, %s (Line %d).", Shown(id).constData(),
                         Shown(language).constData(), place.line);
    else
        model.env.Report({"import.text-refused", Severity::Error, place.file, place.line, id, {}},
                         "%s: a string can't hold a tab or a line end - %s, %s.", Shown(place.name).constData(),
                         Shown(id).constData(), Shown(language).constData());
}

void ImportPlan::TellStale(quint32 row, quint32 column, const QString &id)
{
    const ImportPlace place = source.PlaceOf(row, column);
    model.env.Report({"import.stale", Severity::Warning, place.file, place.line, id, {}},
                     "%s: %s has another source text now, so this translation of the old one isn't imported.",
                     Shown(place.name).constData(), Shown(id).constData());
}

void ImportPlan::TellTwice(quint32 row, quint32 column, const QString &id, const Place &other)
{
    const ImportPlace place = source.PlaceOf(row, column);
    if (place.file.isEmpty())
        return; // of the rows of a sheet, the first counts
    model.env.Report({"import.twice", Severity::Error, place.file, place.line, id, {}},
                     "%s: %s has another text in %s, for the same language.", Shown(place.name).constData(),
                     Shown(id).constData(), Shown(source.PlaceOf(other.row, other.column).name).constData());
}

quint64 ImportPlan::KeyOf(const Row &row, size_t language) const
{
    return quint64(row.first) << 32 | languages[language].first;
}

ImportPlan::Before ImportPlan::TextBefore(const Row &row, size_t language, const IDRecord *record) const
{
    CResFolder *const folder = folders[language];
    const CStringRes *const cell = record && folder ? cells.Find(record, *folder) : nullptr;
    const bool isFull = cell && cell->HasText();
    if (isFull && !options.replace)
        return {cell->Text().toString()};
    const auto found = places.empty() ? places.end() : places.find(KeyOf(row, language));
    if (found != places.end()) {
        const auto [otherRow, otherColumn] = found->second;
        if (otherRow < row.row || (otherRow == row.row && otherColumn < languages[language].column))
            return {source.Text(otherRow, otherColumn), found->second};
    }
    if (isFull)
        return {cell->Text().toString()};
    const bool isMade =
        languages[language].number == DESCRIPTION && rows.size() > row.first && rows[row.first].row < row.row;
    return {cell || isMade ? std::optional<QString>(QString()) : std::nullopt};
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
            if (!source.HasCell(row.row, column))
                continue;
            const QString text = source.Text(row.row, column);
            const QString before = TextBefore(row, i, record).text.value_or(QString());
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

bool ImportPlan::IsMade(const Language &language) const
{
    return language.number == DESCRIPTION || language.isUsed ||
           (makesUnused && !options.onlyExisting && language.isWanted);
}

bool ImportPlan::ChangesTable() const
{
    for (size_t i = 0; i < languages.size(); ++i) {
        if (!folders[i] && IsMade(languages[i]))
            return true;
    }
    return std::any_of(rows.begin(), rows.end(), [](const Row &row) { return row.changes; });
}

void ImportPlan::Apply()
{
    rowsByName = {};
    places = {};
    LanguageFolders made(model);
    std::vector<CResFolder *> targets; // null: nothing is imported into the language
    std::vector<CResFolder *> all;
    for (const Language &language : languages) {
        targets.push_back(IsMade(language) ? &made.Ensure(language.number, language.title) : nullptr);
        if (targets.back())
            all.push_back(targets.back());
    }
    CellFinder finder(all);
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
        const bool isTaken = IsTaken(fate);
        if (fate == PASSED_OVER || !targets[i])
            continue;
        CStringRes *cell = record ? finder.Find(record, *targets[i]) : nullptr;
        if (cell && isTaken && (!cell->HasText() || fate == quint8(CellFate::Replaced)))
            cell->SetText(source.Text(row.row, languages[i].column));
        if (!cell && (isTaken || languages[i].number == DESCRIPTION)) {
            cell = builder.Add(*targets[i], isTaken ? source.Text(row.row, languages[i].column) : QString());
            if (!cell)
                return;
            finder.Added(cell);
        }
        if (!cell)
            continue;
        builder.Continue(*cell);
        record = cell->Id();
    }
    record->push = row.push;
    if (row.push)
        record->pushKind = PUSH_STRING;
}
