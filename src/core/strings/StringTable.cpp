// SPDX-License-Identifier: MIT
#include "StringTable.h"

#include "Environment.h"
#include "LanguageFolders.h"
#include "StringFileFormat.h"

#include <algorithm>

using StringFileFormat::DESCRIPTION;
using StringFileFormat::DESCRIPTION_WORD;
using StringFileFormat::NORMAL_WORD;
using StringFileFormat::PUSH_WORD;
using StringFileFormat::TYPE_WORD;

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

StringTable::Batch::Batch(StringTable &stringTable) : table(stringTable)
{
    if (table.batches++ == 0)
        table.grid.BatchBegins();
}

StringTable::Batch::~Batch()
{
    if (--table.batches == 0)
        table.grid.BatchEnds();
}

void StringTable::Forget()
{
    grid.TableResetting();
    history.Clear();
    rows.Clear();
    languages.clear();
    ForgetCopies();
    grid.TableReset();
}

void StringTable::TreeGoes(const CResFolder &folder)
{
    const CResFolder *strings = Strings();
    if (&folder == &model.root || (strings && &folder == strings)) {
        Forget();
        return;
    }
    if (!strings || folder.kind != KIND_LANGUAGE)
        return;
    if (&folder == strings->subfolders.front().get()) // the folder of the heads
        Forget();
    else
        RemoveLanguageColumn(folder.index);
}

void StringTable::Rebuild()
{
    const Batch batch(*this);
    grid.TableResetting();
    languages.clear();
    std::vector<CStringRes *> heads;
    if (const CResFolder *strings = Strings(); strings && !strings->subfolders.empty()) {
        for (const auto &folder : strings->subfolders) {
            if (folder->index != DESCRIPTION)
                languages.push_back(folder->index);
        }
        const ResourceList &stored = strings->subfolders.front()->resources;
        heads.reserve(stored.Count());
        for (CBaseRes *head : stored)
            heads.push_back(static_cast<CStringRes *>(head));
    }
    rows.Assign(heads);
    if (!languages.empty())
        history.Clear();
    if (!std::all_of(copiedHeads.begin(), copiedHeads.end(), [&](auto *head) { return rows.Contains(head); }))
        ForgetCopies();
    grid.TableReset();
}

void StringTable::Reorder(const std::vector<int> &order)
{
    Q_ASSERT(order.size() == size_t(RowCount()));
    grid.RowsMoving();
    std::vector<CStringRes *> heads;
    heads.reserve(order.size());
    for (const int row : order)
        heads.push_back(Head(row));
    rows.Assign(heads);
    grid.RowsMoved(order);
}

void StringTable::AddLanguageColumn(const CResFolder &folder)
{
    const int col = ColumnCount();
    grid.ColumnInserting(col);
    languages.push_back(folder.index);
    history.Clear();
    grid.ColumnInserted(col);
}

void StringTable::RemoveLanguageColumn(qint32 language)
{
    const int col = ColumnOf(language);
    if (col == ColumnCount())
        return;
    grid.ColumnRemoving(col);
    languages.erase(languages.begin() + (col - FIRST_LANGUAGE_COLUMN));
    grid.ColumnRemoved(col);
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

QString StringTable::ColumnTitle(int col) const
{
    switch (col) {
    case ID_COLUMN:
        return QStringLiteral("ID");
    case KIND_COLUMN:
        return TYPE_WORD.toString();
    case DESCRIPTION_COLUMN:
        return DESCRIPTION_WORD.toString();
    default:
        const CResFolder *folder = ColumnLanguage(col);
        return folder ? folder->title : QString();
    }
}

int StringTable::ColumnOf(qint32 language) const
{
    return FIRST_LANGUAGE_COLUMN + int(std::find(languages.begin(), languages.end(), language) - languages.begin());
}

CStringRes *StringTable::CellRecord(int row, int col) const
{
    CStringRes *head = Head(row);
    if (!head || col < DESCRIPTION_COLUMN || col >= ColumnCount())
        return nullptr;
    // Doesn't look up the column's folder, which takes longer than all the rest. A record is deleted with its folder,
    // so it isn't found without one.
    return head->FindLanguage(col == DESCRIPTION_COLUMN ? DESCRIPTION : languages[size_t(col - FIRST_LANGUAGE_COLUMN)]);
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
    return CellView(row, col).toString();
}

QStringView StringTable::CellView(int row, int col) const
{
    const CStringRes *record = CellRecord(row, col);
    return record ? record->Text() : QStringView();
}

int StringTable::RowOf(const NarrowText &name, int hint) const
{
    const CStringRes *head = Head(hint);
    if (head && head->Id()->name == name)
        return hint;
    return rows.Find(HeadOf(name));
}

CStringRes *StringTable::HeadOf(const NarrowText &name) const
{
    const IDRecord *record = model.ids.Find(name, ANY_RESOLUTION);
    const CResFolder *folder = record ? ColumnLanguage(DESCRIPTION_COLUMN) : nullptr;
    return folder ? static_cast<CStringRes *>(folder->FindResource(record)) : nullptr;
}

CResFolder *StringTable::EnsureDescriptionFolder()
{
    if (CResFolder *folder = ColumnLanguage(DESCRIPTION_COLUMN))
        return folder;
    return Strings() ? &LanguageFolders(model).Ensure(DESCRIPTION, QString()) : nullptr;
}

QString StringTable::DefaultStringId()
{
    while (!freedDefaults.empty()) {
        const quint32 number = *freedDefaults.begin();
        QString name = defaultNames.Name(number);
        if (!model.IsIdInUse(name))
            return name;
        freedDefaults.erase(number); // it was taken again since then
    }
    return defaultNames.Free(model, freshDefault);
}

QString StringTable::CopyStringId(const QString &source)
{
    quint32 first = 1;
    return copyNames.Free(model, first, source);
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
