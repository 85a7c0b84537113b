// SPDX-License-Identifier: MIT
#include "PackSizes.h"

#include "Environment.h"
#include "IDPool.h"
#include "PackImage.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{

constexpr quint32 NUMBER_BITS = 0xFFFF; // of a language's key

QString NameOf(const Environment &env, const BlockItem &item)
{
    return item.id ? env.NarrowToWide(item.id->name) : u"language %1"_s.arg(item.key & NUMBER_BITS);
}

} // namespace

std::vector<PackedSize> LargestResources(const PackImage &image, const Environment &env, size_t most)
{
    struct Place
    {
        quint64 bytes;
        const PackEntry *entry;
        const BlockItem *item;
    };
    std::vector<Place> places;
    for (const PackEntry &entry : image.entries) {
        if (!entry.isBlock && entry.paddedSize > 0)
            places.push_back({entry.paddedSize, &entry, nullptr});
    }
    for (const BlockItem &item : image.items) {
        if (item.size > 0)
            places.push_back({item.size, nullptr, &item});
    }
    std::stable_sort(places.begin(), places.end(), [](const Place &a, const Place &b) { return a.bytes > b.bytes; });
    places.resize(std::min(most, places.size()));

    std::vector<PackedSize> sizes;
    for (const auto &[bytes, entry, item] : places)
        sizes.push_back({entry ? env.NarrowToWide(entry->name) : NameOf(env, *item), bytes});
    return sizes;
}

QString OverBudgetText(quint64 payload, quint64 budget)
{
    if (budget == 0 || payload <= budget)
        return {};
    return u"the payload has %1 bytes, %2 more than the budget of %3 bytes"_s.arg(payload)
        .arg(payload - budget)
        .arg(budget);
}

QString SizeLines(const std::vector<PackedSize> &sizes)
{
    constexpr int WIDTH = 12;
    QString lines;
    for (const auto &[name, bytes] : sizes)
        lines += u"\n%1  %2"_s.arg(bytes, WIDTH).arg(name);
    return lines;
}
