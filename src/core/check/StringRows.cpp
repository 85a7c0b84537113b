// SPDX-License-Identifier: MIT
#include "StringRows.h"

#include "ResModel.h"
#include "RowTexts.h"
#include "TextContext.h"

#include <QHashFunctions>

#include <algorithm>

std::vector<StringRow> StringRowsOf(const CResModel &model)
{
    std::vector<StringRow> rows;
    const CResFolder *const strings = model.root.FindFolder(KIND_STRINGS, 2);
    if (!strings || strings->subfolders.empty())
        return rows;
    rows.reserve(strings->subfolders.front()->resources.Count());
    for (const CBaseRes *res : strings->subfolders.front()->resources)
        rows.push_back({static_cast<const CStringRes *>(res)});
    return rows;
}

std::vector<const CStringRes *> RowsWithEqualSource(const std::vector<StringRow> &rows)
{
    std::vector<size_t> hashes;
    hashes.reserve(rows.size());
    for (const StringRow &row : rows)
        hashes.push_back(row.sourceHash);
    std::sort(hashes.begin(), hashes.end());
    std::vector<size_t> repeated;
    for (size_t i = 1; i < hashes.size(); ++i) {
        if (hashes[i] == hashes[i - 1] && (repeated.empty() || repeated.back() != hashes[i]))
            repeated.push_back(hashes[i]);
    }
    std::vector<const CStringRes *> found;
    for (const StringRow &row : rows) {
        if (!repeated.empty() && std::binary_search(repeated.begin(), repeated.end(), row.sourceHash))
            found.push_back(row.head);
    }
    return found;
}

std::vector<const CStringRes *> RowsWithEqualSource(const CResModel &model, const TextContext &context)
{
    std::vector<StringRow> rows = StringRowsOf(model);
    RowTexts texts(context);
    for (StringRow &row : rows) {
        texts.Take(*row.head);
        row.sourceHash = context.Languages().empty() ? 0 : qHash(texts[context.Source()]);
    }
    return RowsWithEqualSource(rows);
}
