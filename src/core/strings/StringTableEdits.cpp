// SPDX-License-Identifier: MIT
#include "Environment.h"
#include "IdNames.h"
#include "RowBuilder.h"
#include "StringFileFormat.h"
#include "StringTable.h"

#include <algorithm>

using StringFileFormat::DESCRIPTION;
using StringFileFormat::PUSH_WORD;

namespace
{

NarrowText NameOf(const CBaseRes *res)
{
    return res ? res->Id()->name : NarrowText();
}

} // namespace

void StringTable::Show(int row, int col, const QString &text)
{
    grid.CellShows(row, col, text);
    grid.FocusCell(row, col);
}

int StringTable::ApplyCellEdit(int row, int col, QString text)
{
    CStringRes *const head = Head(row);
    if (!head)
        return EDIT_NO_ROW;
    if (col == ID_COLUMN) {
        text = ToUpperSimple(text.trimmed());
        if (!IsValidIdName(text))
            return EDIT_INVALID_ID;
        return RestoreId(row, model.env.WideToNarrow(text));
    } else if (col == KIND_COLUMN) {
        // This alone doesn't set the modified flag.
        head->Id()->push = EqualsNoCase(text, PUSH_WORD);
        if (head->Id()->push)
            head->Id()->pushKind = PUSH_STRING;
    } else if (CStringRes *record = CellRecord(row, col)) {
        record->SetText(text);
    } else {
        CResFolder *const folder = ColumnLanguage(col);
        if (!folder)
            return EDIT_NO_LANGUAGE;
        RowBuilder(model, *head).Add(*folder, text);
    }
    Show(row, col, text);
    ForgetCopiedRow(row);
    return EDIT_DONE;
}

int StringTable::RestoreId(int row, const NarrowText &name)
{
    CStringRes *const head = Head(row);
    if (!head)
        return EDIT_NO_ROW;
    if (!head->Rename(model.ids, name))
        return EDIT_ID_TAKEN;
    Show(row, ID_COLUMN, CellText(row, ID_COLUMN));
    ForgetCopiedRow(row);
    return EDIT_DONE;
}

int StringTable::MakeHead(const NarrowText &name, CBaseRes *before, CStringRes *&head)
{
    CResFolder *const descriptions = EnsureDescriptionFolder();
    head = descriptions ? RowBuilder(model, name).Add(*descriptions, QString(), before) : nullptr;
    return head ? EDIT_DONE : EDIT_ID_TAKEN;
}

int StringTable::MakeTypedHead(const QString &idText, CBaseRes *before, CStringRes *&head)
{
    EnsureDescriptionFolder(); // even for an ID that is refused
    if (idText.isEmpty()) {
        const int code = MakeHead(model.env.WideToNarrow(DefaultStringId()), before, head);
        return code ? EDIT_NO_DEFAULT_ID : EDIT_DONE;
    }
    return IsValidIdName(idText) ? MakeHead(model.env.WideToNarrow(idText), before, head) : int(EDIT_INVALID_ID);
}

void StringTable::InsertIntoList(int row, CStringRes *head)
{
    grid.RowInserting(row);
    rows.Insert(row, head);
    grid.RowInserted(row);
}

int StringTable::CreateRow(const QString &idText, int row)
{
    row = std::min(row, RowCount());
    CStringRes *head = nullptr;
    if (const int code = MakeTypedHead(idText, Head(row), head))
        return code;
    InsertIntoList(row, head);
    return EDIT_DONE;
}

int StringTable::InsertFromCell(int row, int col, QString text)
{
    text = ToUpperSimple(text);
    row = std::min(row, RowCount());
    const int code = CreateRow(col == ID_COLUMN ? text : QString(), row);
    if (code != EDIT_DONE || col == ID_COLUMN)
        return code;
    CStringRes *const head = Head(row);
    if (col == KIND_COLUMN || col == DESCRIPTION_COLUMN) {
        head->SetText(text);
        if (col == KIND_COLUMN) // a kind can't be typed here: the text is the description
            grid.CellShows(row, DESCRIPTION_COLUMN, text);
    } else if (col >= FIRST_LANGUAGE_COLUMN) {
        CResFolder *const folder = ColumnLanguage(col);
        if (!folder)
            return EDIT_NO_LANGUAGE;
        RowBuilder(model, *head).Add(*folder, text);
    }
    Show(row, col, text);
    return EDIT_DONE;
}

Snapshot StringTable::SnapshotRow(CStringRes &head) const
{
    Snapshot made;
    made.id = head.Id()->name;
    made.push = head.Id()->push;
    made.pushKind = head.Id()->pushKind;
    made.description = head.Text().toString();
    const CStringRes *last = &head; // the row's records are usually in the order of the folders
    for (const auto &folder : Strings()->subfolders) {
        const CStringRes *const cell = folder->index == DESCRIPTION ? nullptr : last->FindLanguage(folder->index);
        if (!cell)
            continue;
        made.texts.emplace_back(folder->index, cell->Text().toString());
        last = cell;
    }
    if (!made.texts.empty()) {
        head.NotifyChanged();
        made.teller.reset(&model);
    }
    return made;
}

CBaseRes *StringTable::Behind(const TreePlace &place, int row) const
{
    if (const CStringRes *before = HeadOf(place.before))
        return before->NextInFolder();
    CStringRes *const behind = HeadOf(place.behind);
    return behind ? behind : Head(row);
}

int StringTable::RestoreRow(const Snapshot &snapshot, int row, bool keepId)
{
    row = std::min(row, RowCount());
    CStringRes *head = nullptr;
    const int code = keepId ? MakeHead(snapshot.id, Behind(snapshot.place, row), head)
                            : MakeTypedHead(CopyStringId(model.env.NarrowToWide(snapshot.id)), Head(row), head);
    if (code)
        return code;
    FillRow(*head, snapshot);
    InsertIntoList(row, head);
    grid.FocusCell(row, ID_COLUMN);
    return EDIT_DONE;
}

void StringTable::FillRow(CStringRes &head, const Snapshot &snapshot)
{
    head.SetText(snapshot.description);
    head.Id()->push = snapshot.push;
    head.Id()->pushKind = snapshot.pushKind;
    RowBuilder cells(model, head);
    auto next = snapshot.texts.begin(); // the texts are usually in the order of the folders
    for (const auto &folder : Strings()->subfolders) {
        const auto isOfFolder = [&](const auto &each) { return each.first == folder->index; };
        auto text = std::find_if(next, snapshot.texts.end(), isOfFolder);
        if (text == snapshot.texts.end())
            text = std::find_if(snapshot.texts.begin(), next, isOfFolder);
        else
            next = text + 1;
        if (text != snapshot.texts.end() && isOfFolder(*text))
            cells.Add(*folder, text->second);
    }
}

int StringTable::DeleteRow(int row, TreePlace *place)
{
    CStringRes *const head = Head(row);
    if (!head)
        return EDIT_NO_ROW;
    if (place)
        *place = {NameOf(head->PrevInFolder()), NameOf(head->NextInFolder())};
    grid.FocusCell(row, ID_COLUMN);
    ForgetCopyOf(head);
    grid.RowRemoving(row);
    rows.Remove(row); // before its records are deleted: the grid may ask for any row
    IDRecord *const id = head->Id();
    id->AddRef(); // its last holder would delete it, but it is still needed below
    for (const auto &folder : Strings()->subfolders)
        folder->DeleteResource(id);
    id->Release();
    grid.RowRemoved(row);
    return EDIT_DONE;
}

int StringTable::DeleteRows(const std::vector<int> &toDelete, std::vector<TreePlace> *places)
{
    const Batch batch(*this);
    if (places)
        places->assign(toDelete.size(), {});
    for (size_t n = toDelete.size(); n-- > 0;) {
        if (const int code = DeleteRow(toDelete[n], places ? &(*places)[n] : nullptr))
            return code;
    }
    return EDIT_DONE;
}
