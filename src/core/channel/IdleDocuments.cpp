// SPDX-License-Identifier: MIT
#include "IdleDocuments.h"

#include <algorithm>

using std::chrono::milliseconds;

void IdleDocuments::Used(const QString &path, Time now)
{
    if (const CDocument *document = documents.FindDocument(path))
        lastUse[document] = now;
}

int IdleDocuments::CloseUnused(Time now)
{
    if (limit.count() == 0)
        return 0;
    std::vector<CDocument *> due;
    std::unordered_map<const CDocument *, Time> stillOpen;
    for (const auto &document : documents.Documents()) {
        const auto known = lastUse.find(document.get());
        const Time used = known == lastUse.end() ? now : known->second;
        if (now - used >= limit && !document->IsModified())
            due.push_back(document.get());
        else
            stillOpen.emplace(document.get(), used);
    }
    lastUse = std::move(stillOpen);
    for (CDocument *document : due)
        documents.CloseDocument(document);
    return int(due.size());
}

std::optional<milliseconds> IdleDocuments::NextLook(Time now) const
{
    std::optional<milliseconds> next;
    for (const auto &document : documents.Documents()) {
        if (limit.count() == 0 || document->IsModified()) // only a command can save it, and a check follows that
            continue;
        const auto known = lastUse.find(document.get());
        const Time used = known == lastUse.end() ? now : known->second;
        const auto left = std::chrono::ceil<milliseconds>(used + limit - now);
        next = std::min(next.value_or(milliseconds::max()), std::max(left, milliseconds(0)));
    }
    return next;
}
