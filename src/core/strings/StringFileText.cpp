// SPDX-License-Identifier: MIT
#include "StringFileText.h"

#include "Environment.h"
#include "StringFileFormat.h"

#include <algorithm>

using namespace StringFileFormat;

static_assert(Q_BYTE_ORDER == Q_LITTLE_ENDIAN, "the text is written as it is in memory");

namespace
{

constexpr QStringView LINE_END = u"\r\n";

const std::vector<std::unique_ptr<CResFolder>> &FoldersOf(const CResFolder *strings,
                                                          const std::vector<std::unique_ptr<CResFolder>> &none)
{
    return strings ? strings->subfolders : none;
}

} // namespace

StringFileText::StringFileText(const CResModel &model)
    : document(model), folders(FoldersOf(model.root.FindFolder(KIND_STRINGS, 2), none)), row(folders.size())
{
    for (size_t i = 0; i < folders.size(); ++i)
        columnsOf[folders[i]->index].push_back(i);
}

const ResourceList *StringFileText::Rows() const
{
    return folders.empty() ? nullptr : &folders.front()->resources;
}

void StringFileText::PutHeader()
{
    out = QChar(BYTE_ORDER_MARK);
    Put(COUNT_WORD, u"\t");
    Put(QString::number(folders.empty() ? 0 : folders.size() - 1), LINE_END);
    Put(ID_WORD, u"\t");
    Put(TYPE_WORD, u"\t");
    Put(DESCRIPTION_WORD, {});
    for (size_t i = 1; i < folders.size(); ++i) {
        Put(u"\t", folders[i]->title);
        Put(u"(", QString::number(folders[i]->index));
        Put(u")", {});
    }
    Put(LINE_END, {});
}

/// Finds the records of a row in one walk, in the order in which `FindLanguage` searches.
void StringFileText::CollectRow(const CStringRes &head)
{
    std::fill(row.begin(), row.end(), nullptr);
    (void)AnyRecord(head, [this](const CStringRes &cell) {
        const auto found = columnsOf.find(cell.Language());
        if (found != columnsOf.end() && !row[found->second.front()]) {
            for (const size_t column : found->second)
                row[column] = &cell;
        }
        return false;
    });
}

void StringFileText::PutRow(const CBaseRes &head)
{
    CollectRow(static_cast<const CStringRes &>(head));
    Put(document.env.NarrowToWide(head.Id()->name), u"\t");
    Put(head.Id()->push ? PUSH_WORD : NORMAL_WORD, {});
    for (const CStringRes *cell : row)
        Put(u"\t", cell ? cell->Text() : QStringView());
    Put(LINE_END, {});
}

void StringFileText::PutEnd()
{
    if (folders.empty())
        return;
    Put(END_WORD, u"\t");
    Put(QString::number(folders.front()->resources.Count()), LINE_END);
}
