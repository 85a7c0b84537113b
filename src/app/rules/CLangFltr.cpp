// SPDX-License-Identifier: MIT
#include "CLangFltr.h"

#include "Environment.h"
#include "LanguageTable.h"
#include "ResModel.h"
#include "StringFileFormat.h"
#include "StringTable.h"
#include "ViewBoxes.h"

namespace
{

constexpr int COLUMN_WIDTH = 120;
constexpr int NAME_COLUMN = 0;

} // namespace

CLangFltr::CLangFltr(StringTable &stringTable, CResModel &document, CResFolder &stringsFolder, IViewBoxes &viewBoxes)
    : table(stringTable), doc(document), strings(stringsFolder), boxes(viewBoxes)
{
}

CResFolder *CLangFltr::FolderOf(qint32 number) const
{
    for (const auto &folder : strings.subfolders) {
        if (folder->index == number)
            return folder.get();
    }
    return nullptr;
}

bool CLangFltr::InitList(CheckList &list)
{
    list.columns = {{QStringLiteral("Language"), COLUMN_WIDTH}, {QStringLiteral("ID"), COLUMN_WIDTH}};
    list.rows.clear();
    names.clear();
    for (const KnownLanguage &known : KnownLanguages(doc.env)) {
        if (known.number == StringFileFormat::DESCRIPTION)
            continue; // the number of the descriptions, which are not a language
        list.rows.push_back(
            {{known.name, QString::number(known.number)}, known.number, FolderOf(known.number) != nullptr});
        names[known.number] = known.name;
    }
    added = deleted = 0;
    return true;
}

void CLangFltr::OnCheck(qint32 number, bool checked)
{
    if (FolderOf(number))
        deleted += checked ? -1 : 1;
    else
        added += checked ? 1 : -1;
}

int CLangFltr::Compare(qint32 a, qint32 b, int column) const
{
    if (column != NAME_COLUMN)
        return int(a > b) - int(a < b);
    const auto nameOf = [this](qint32 number) {
        const auto found = names.find(number);
        return found == names.end() ? QString() : found->second;
    };
    return order.Compare(nameOf(a), nameOf(b));
}

bool CLangFltr::Ask() const
{
    const QString counts = QStringLiteral("%1 language(s) will be added, and %2 will be deleted.");
    const QString question = counts.arg(added).arg(deleted);
    if (deleted < 1)
        return boxes.AskOkCancel(question);
    return boxes.AskYesNo(question +
                          QStringLiteral("\r\nAll strings of the deleted language(s) will be deleted too. Continue?"));
}

bool CLangFltr::Apply(CheckList &list)
{
    if (added + deleted < 1)
        return true;
    if (!Ask())
        return false;
    const StringTable::Batch batch(table);
    table.EnsureDescriptionFolder(); // so that the first language doesn't get the column of the descriptions
    for (const CheckList::Row &row : list.rows) {
        CResFolder *const folder = FolderOf(row.data);
        if (row.checked && !folder)
            Add(row.data, row.texts[NAME_COLUMN]);
        else if (!row.checked && folder)
            doc.DeleteFolder(*folder); // this makes the table remove the column
    }
    return true;
}

void CLangFltr::Add(qint32 number, const QString &name)
{
    std::unique_ptr<CResFolder> made = doc.CreateFolder(KIND_LANGUAGE, number);
    if (!made)
        return;
    CResFolder &folder = *made;
    folder.title = name;
    strings.AddFolder(std::move(made));
    table.AddLanguageColumn(folder);
}
