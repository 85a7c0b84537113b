#include "StringTable.h"

#include "Environment.h"
#include "IdNames.h"
#include "StringFileFormat.h"

#include <algorithm>

using StringFileFormat::DESCRIPTION;
using StringFileFormat::NORMAL_WORD;
using StringFileFormat::PUSH_WORD;

QString StringEditMessage(int code)
{
    switch (code) {
    case EDIT_DONE:
        return {};
    case EDIT_ID_TAKEN:
        return QStringLiteral("The ID already exists, or it is reserved.");
    case EDIT_NO_DEFAULT_ID:
        return QStringLiteral("Failed to allocate a default ID. Please assign one for it.");
    case EDIT_INVALID_ID:
        return QStringLiteral("The ID is invalid.");
    case EDIT_NO_LANGUAGE:
        return QStringLiteral("The language does not exist");
    default:
        return QStringLiteral("Unkown error");
    }
}

StringTable::StringTable(CResModel &document, IStringGrid &shownIn)
    : ITreeListener(document), grid(shownIn), model(document),
      defaultNames(document.env.settings.String("DefaultID", "string_id", "ID_STRING_%04X")),
      copyNames(document.env.settings.String("DefaultID", "string_copy_id", "%s_COPY_%04X")),
      nameFreed(document.ids.nameFreed, [this](const NarrowText &name) {
          const auto number = defaultNames.NumberOf(model.env.NarrowToWide(name));
          if (number && *number > 0 && *number < freshDefault)
              freedDefaults.insert(*number);
      })
{
}

CResFolder *StringTable::Strings() const
{
    return model.root.FindFolder(KIND_STRINGS, 2);
}

void StringTable::TreeGoes(const CResFolder &folder)
{
    const CResFolder *strings = Strings();
    const CResFolder *heads = !strings || strings->subfolders.empty() ? nullptr : strings->subfolders.front().get();
    if (&folder == &model.root || &folder == strings || &folder == heads)
        Forget();
}

void StringTable::Forget()
{
    history.Clear();
    rows.Clear();
    languages.clear();
    ForgetCopies();
    grid.ColumnsChanged();
}

void StringTable::Rebuild()
{
    rows.Clear();
    languages.clear();
    ForgetCopies();
    const CResFolder *strings = Strings();
    if (!strings)
        return;
    for (const auto &folder : strings->subfolders) {
        if (folder->index != DESCRIPTION)
            AddLanguageColumn(*folder);
    }
    if (!strings->subfolders.empty()) {
        for (CBaseRes *head : strings->subfolders.front()->resources)
            rows.Append(static_cast<CStringRes *>(head));
    }
}

void StringTable::AddLanguageColumn(const CResFolder &folder)
{
    languages.push_back(folder.index);
    history.Clear();
    grid.ColumnsChanged();
}

void StringTable::RemoveLanguageColumn(qint32 language)
{
    std::erase(languages, language);
    grid.ColumnsChanged();
}

CResFolder *StringTable::ColumnLanguage(int col) const
{
    if (col < DESCRIPTION_COLUMN || col >= ColumnCount())
        return nullptr;
    const qint32 language =
        col == DESCRIPTION_COLUMN ? DESCRIPTION : languages[size_t(col) - size_t(FIRST_LANGUAGE_COLUMN)];
    const CResFolder *strings = Strings();
    return strings ? strings->FindFolder(KIND_LANGUAGE, language, 1) : nullptr;
}

int StringTable::ColumnOf(qint32 language) const
{
    return FIRST_LANGUAGE_COLUMN + int(std::find(languages.begin(), languages.end(), language) - languages.begin());
}

CStringRes *StringTable::CellRecord(int row, int col) const
{
    const CResFolder *folder = ColumnLanguage(col);
    CStringRes *head = Head(row);
    return folder && head ? head->FindLanguage(folder->index) : nullptr;
}

QString StringTable::CellText(int row, int col) const
{
    const CStringRes *head = Head(row);
    if (!head)
        return IsNewRow(row) && col == ID_COLUMN ? QStringLiteral("<New>") : QString();
    if (col == ID_COLUMN)
        return model.env.NarrowToWide(head->Id()->name);
    if (col == KIND_COLUMN)
        return (head->Id()->push ? PUSH_WORD : NORMAL_WORD).toString();
    const CStringRes *record = CellRecord(row, col);
    return record ? record->text : QString();
}

int StringTable::RowOf(const NarrowText &name, int hint) const
{
    const CStringRes *head = Head(hint);
    if (head && head->Id()->name == name)
        return hint;
    const IDRecord *record = model.ids.Find(name, ANY_RESOLUTION);
    const CResFolder *folder = ColumnLanguage(DESCRIPTION_COLUMN);
    return record && folder ? rows.Find(static_cast<CStringRes *>(folder->FindResource(record))) : -1;
}

CResFolder *StringTable::EnsureDescriptionFolder()
{
    if (CResFolder *folder = ColumnLanguage(DESCRIPTION_COLUMN))
        return folder;
    auto made = model.CreateFolder(KIND_LANGUAGE, DESCRIPTION);
    CResFolder *const folder = made.get();
    CResFolder *const strings = Strings();
    if (!strings)
        return nullptr;
    strings->AddFolder(std::move(made));
    return folder;
}

QString StringTable::DefaultStringId()
{
    while (!freedDefaults.empty()) {
        const quint32 number = *freedDefaults.begin();
        QString name = defaultNames.Name(number);
        if (!model.IsIdInUse(name))
            return name;
        freedDefaults.erase(number); // taken again since
    }
    return defaultNames.Free(model, freshDefault);
}

QString StringTable::CopyStringId(const QString &source)
{
    quint32 first = 1;
    return copyNames.Free(model, first, source);
}

void StringTable::Show(int row, int col, const QString &text)
{
    grid.CellShows(row, col, text);
    grid.FocusCell(row, col);
}

int StringTable::Rename(CStringRes &head, const QString &name)
{
    if (!IsValidIdName(name))
        return EDIT_INVALID_ID;
    return head.Rename(model.ids, model.env.WideToNarrow(name)) ? EDIT_DONE : EDIT_ID_TAKEN;
}

CStringRes *StringTable::AddCell(CStringRes &behind, CResFolder &folder, const QString &text)
{
    auto made = model.CreateStringRes(behind.Id(), folder.index);
    CStringRes *const cell = made.get();
    cell->SetText(text);
    behind.LinkBehind(cell);
    folder.AddResource(std::move(made));
    return cell;
}

int StringTable::ApplyCellEdit(int row, int col, QString text)
{
    CStringRes *const head = Head(row);
    if (!head)
        return EDIT_NO_ROW;
    if (col == ID_COLUMN) {
        text = ToUpperSimple(text.trimmed());
        if (const int code = Rename(*head, text))
            return code;
    } else if (col == KIND_COLUMN) {
        // By itself this marks nothing as modified.
        head->Id()->push = EqualsNoCase(text, PUSH_WORD);
        if (head->Id()->push)
            head->Id()->pushKind = PUSH_STRING;
    } else if (CStringRes *record = CellRecord(row, col)) {
        record->SetText(text);
    } else {
        CResFolder *const folder = ColumnLanguage(col);
        if (!folder)
            return EDIT_NO_LANGUAGE;
        AddCell(*head, *folder, text);
    }
    Show(row, col, text);
    ForgetCopiedRow(row);
    return EDIT_DONE;
}

int StringTable::CreateRow(const QString &idText, int row)
{
    CResFolder *const descriptions = EnsureDescriptionFolder();
    if (!idText.isEmpty() && !IsValidIdName(idText))
        return EDIT_INVALID_ID;
    const QString name = idText.isEmpty() ? DefaultStringId() : idText;
    auto made = descriptions ? model.CreateStringRes(model.env.WideToNarrow(name), DESCRIPTION) : nullptr;
    if (!made)
        return idText.isEmpty() ? EDIT_NO_DEFAULT_ID : EDIT_ID_TAKEN;
    CStringRes *const head = made.get();
    if (row >= RowCount()) {
        row = RowCount();
        descriptions->AddResource(std::move(made));
    } else {
        descriptions->InsertResourceBefore(std::move(made), Head(row));
    }
    rows.Insert(row, head);
    grid.RowInserted(row);
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
    } else if (col >= FIRST_LANGUAGE_COLUMN) {
        CResFolder *const folder = ColumnLanguage(col);
        if (!folder)
            return EDIT_NO_LANGUAGE;
        AddCell(*head, *folder, text);
    }
    Show(row, col, text);
    return EDIT_DONE;
}

int StringTable::SnapshotRow(CStringRes *head, Snapshot &snapshot)
{
    Snapshot made;
    made.head.reset(model.CreateDetachedStringRes(head->Id()->name).release());
    if (!made.head)
        return EDIT_ID_TAKEN;
    made.head->SetText(head->text);
    made.push = head->Id()->push;
    made.pushKind = head->Id()->pushKind;
    CStringRes *last = made.head.get();
    for (const auto &folder : Strings()->subfolders) {
        const CStringRes *cell = folder->index == DESCRIPTION ? nullptr : head->FindLanguage(folder->index);
        if (!cell)
            continue;
        CStringRes *const copy = model.CreateStringRes(made.head->Id(), folder->index).release(); // the chain's now
        last->LinkBehind(copy);
        copy->SetText(cell->text);
        last = copy;
    }
    snapshot = std::move(made);
    return EDIT_DONE;
}

int StringTable::RestoreRow(const Snapshot &snapshot, int row, bool keepId)
{
    CStringRes &copy = *snapshot.head;
    const QString own = model.env.NarrowToWide(copy.Id()->name);
    row = std::min(row, RowCount());
    if (const int code = CreateRow(keepId ? own : CopyStringId(own), row))
        return code;
    CStringRes *const head = Head(row);
    head->SetText(copy.text);
    head->Id()->push = snapshot.push;
    head->Id()->pushKind = snapshot.pushKind;
    grid.CellShows(row, KIND_COLUMN, CellText(row, KIND_COLUMN));
    grid.CellShows(row, DESCRIPTION_COLUMN, head->text);
    CStringRes *last = head;
    for (int col = FIRST_LANGUAGE_COLUMN; col < ColumnCount(); ++col) {
        CResFolder *const folder = ColumnLanguage(col);
        const CStringRes *cell = folder ? copy.FindLanguage(folder->index) : nullptr;
        if (!cell)
            continue;
        last = AddCell(*last, *folder, cell->text);
        grid.CellShows(row, col, cell->text);
    }
    grid.FocusCell(row, ID_COLUMN);
    return EDIT_DONE;
}

int StringTable::DeleteRow(int row)
{
    CStringRes *const head = Head(row);
    if (!head)
        return EDIT_NO_ROW;
    grid.FocusCell(row, ID_COLUMN);
    ForgetCopyOf(head);
    rows.Remove(row); // before its records go: the grid may ask for any row
    IDRecord *const id = head->Id();
    id->AddRef(); // it would go with the last of its holders, and is asked for once more
    for (const auto &folder : Strings()->subfolders)
        folder->DeleteResource(id);
    id->Release();
    grid.RowRemoved(row);
    return EDIT_DONE;
}

int StringTable::DeleteRows(const std::vector<int> &toDelete)
{
    for (auto row = toDelete.rbegin(); row != toDelete.rend(); ++row) {
        if (const int code = DeleteRow(*row))
            return code;
    }
    return EDIT_DONE;
}

void StringTable::Copy(const std::vector<int> &toCopy)
{
    ForgetCopies();
    for (const int row : toCopy) {
        if (CStringRes *head = Head(row)) {
            copied.emplace(row, head);
            copiedHeads.insert(head);
        }
    }
}

void StringTable::ForgetCopies()
{
    copied.clear();
    copiedHeads.clear();
}

void StringTable::ForgetCopyOf(const CStringRes *head)
{
    if (copiedHeads.contains(head))
        ForgetCopies();
}

void StringTable::ForgetCopiedRow(int row)
{
    ForgetCopyOf(Head(row));
}
