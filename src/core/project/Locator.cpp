// SPDX-License-Identifier: MIT
#include "Locator.h"

#include "Environment.h"
#include "NameOrder.h"
#include "ResModel.h"

#include <algorithm>

namespace
{

/// Returns whether the words of an ID begin with the typed words, in the same order.
bool HasWords(QStringView id, const QStringList &words)
{
    auto word = words.begin();
    for (qsizetype start = 0; word != words.end() && start < id.size();) {
        if (id.sliced(start).startsWith(*word, Qt::CaseInsensitive))
            ++word;
        const qsizetype end = id.indexOf(u'_', start);
        start = end < 0 ? id.size() : end + 1;
    }
    return word == words.end();
}

/// Returns the resource that represents an ID; null for an ID that nothing in the tree has.
CBaseRes *ResourceOf(const IDRecord &record)
{
    for (CBaseRes *res : Holders(record)) {
        const CResFolder *folder = res->Folder();
        if (folder && (folder->kind != KIND_LANGUAGE || folder->index < 0))
            return res;
    }
    return nullptr;
}

LocatedId Located(QString id, CBaseRes &res, CResFolder *strings)
{
    return {std::move(id), &res, res.Folder()->kind == KIND_LANGUAGE ? strings : res.Folder()};
}

/// Sorts the IDs in the order of names and keeps the first `most`. Of equal names, such as those of two resolutions,
/// the older is first.
void KeepFirst(std::vector<LocatedId> &ids, size_t most)
{
    struct Numbered
    {
        size_t number;
        const QString *id;
    };
    std::vector<Numbered> order;
    for (const LocatedId &one : ids)
        order.push_back({order.size(), &one.id});
    const NameOrder names;
    most = std::min(most, ids.size());
    std::partial_sort(order.begin(), order.begin() + ptrdiff_t(most), order.end(),
                      [&](const Numbered &a, const Numbered &b) {
                          const int result = names.Compare(*a.id, *b.id);
                          return result != 0 ? result < 0 : a.number < b.number;
                      });
    std::vector<LocatedId> first;
    for (size_t n = 0; n < most; ++n)
        first.push_back(ids[order[n].number]);
    ids = std::move(first);
}

} // namespace

std::vector<LocatedId> LocateIds(const CResModel &model, const QString &typed, size_t most)
{
    const QString start = typed.simplified().replace(u' ', u'_');
    const QStringList words = start.split(u'_', Qt::SkipEmptyParts);
    CResFolder *const strings = model.root.FindFolder(KIND_STRINGS, 2);
    std::vector<LocatedId> beginning;
    std::vector<LocatedId> further;
    for (const IDRecord *record = model.ids.sentinel.next; record != &model.ids.sentinel; record = record->next) {
        CBaseRes *const res = ResourceOf(*record);
        QString id = res ? model.env.NarrowToWide(record->name) : QString();
        const bool begins = id.startsWith(start, Qt::CaseInsensitive);
        if (res && (begins || HasWords(id, words)))
            (begins ? beginning : further).push_back(Located(std::move(id), *res, strings));
    }
    KeepFirst(beginning, most);
    KeepFirst(further, most - beginning.size());
    beginning.insert(beginning.end(), further.begin(), further.end());
    return beginning;
}

std::vector<LocatedId> LocateId(const CResModel &model, const QString &id)
{
    const NarrowText name = model.env.WideToNarrow(id);
    CResFolder *const strings = model.root.FindFolder(KIND_STRINGS, 2);
    std::vector<LocatedId> all;
    for (const IDRecord *record = model.ids.sentinel.next; record != &model.ids.sentinel; record = record->next) {
        if (record->name != name)
            continue;
        if (CBaseRes *const res = ResourceOf(*record))
            all.push_back(Located(id, *res, strings));
    }
    return all;
}
