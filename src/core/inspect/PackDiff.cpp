// SPDX-License-Identifier: MIT
#include "PackDiff.h"

#include "PackNames.h"

#include <QHash>

#include <algorithm>
#include <map>

namespace
{

/// What a part is matched by.
struct Identity
{
    PartKind kind;
    int language;
    quint32 number; ///< 0 if it has a name
    QString name;
    int occurrence; ///< 0 for the first part of a file that is equal in all others

    bool operator==(const Identity &) const = default;
};

size_t qHash(const Identity &identity, size_t seed = 0)
{
    return qHashMulti(seed, int(identity.kind), identity.language, identity.number, identity.name, identity.occurrence);
}

/// Returns what each part is matched by.
std::vector<Identity> IdentitiesOf(const std::vector<PackedPart> &parts, const PackNames &names)
{
    std::vector<Identity> identities;
    identities.reserve(parts.size());
    QHash<Identity, int> occurrences;
    for (const PackedPart &part : parts) {
        const bool hasNumber = part.kind == PartKind::Item || part.kind == PartKind::String;
        const QString name = hasNumber ? names.Of(part.number) : part.name;
        Identity identity{part.kind, part.language, hasNumber && name.isEmpty() ? part.number : 0, name, 0};
        identity.occurrence = occurrences[identity]++;
        identities.push_back(std::move(identity));
    }
    return identities;
}

struct Match
{
    size_t before;
    size_t after;
};

/// Returns those matches that keep their order: the longest list of them in which both places grow. `matches` are in
/// the order of `before`.
std::vector<bool> KeepOrder(const std::vector<Match> &matches)
{
    constexpr size_t NONE = size_t(-1);
    std::vector<size_t> ends; // the match with the smallest place that ends a list of each length
    std::vector<size_t> previous(matches.size(), NONE);
    for (size_t i = 0; i < matches.size(); ++i) {
        const auto place = std::lower_bound(ends.begin(), ends.end(), matches[i].after,
                                            [&](size_t end, size_t after) { return matches[end].after < after; });
        if (place != ends.begin())
            previous[i] = *(place - 1);
        if (place == ends.end())
            ends.push_back(i);
        else
            *place = i;
    }
    std::vector<bool> kept(matches.size());
    for (size_t i = ends.empty() ? NONE : ends.back(); i != NONE; i = previous[i])
        kept[i] = true;
    return kept;
}

/// Parts of one group are in one list of the file. The rows are in the order of the groups.
using Group = std::pair<PartKind, int>;

Group GroupOf(const PackedPart &part)
{
    return {part.kind, part.language};
}

} // namespace

std::vector<DiffRow> ComparePacks(const std::vector<PackedPart> &before, const PackNames &namesBefore,
                                  const std::vector<PackedPart> &after, const PackNames &namesAfter)
{
    QHash<Identity, size_t> places; // in `after`
    const std::vector<Identity> identities = IdentitiesOf(after, namesAfter);
    for (size_t i = 0; i < after.size(); ++i)
        places.insert(identities[i], i);

    std::vector<DiffRow> rows;
    std::map<Group, std::vector<Match>> groups;
    std::vector<bool> isMatched(after.size());
    const std::vector<Identity> wanted = IdentitiesOf(before, namesBefore);
    for (size_t i = 0; i < before.size(); ++i) {
        const auto place = places.constFind(wanted[i]);
        if (place == places.constEnd()) {
            rows.push_back({PartChange::Removed, &before[i], nullptr});
            continue;
        }
        isMatched[*place] = true;
        groups[GroupOf(before[i])].push_back({i, *place});
    }
    for (const auto &[group, matches] : groups) {
        const std::vector<bool> kept = KeepOrder(matches);
        for (size_t i = 0; i < matches.size(); ++i) {
            const PackedPart &from = before[matches[i].before];
            const PackedPart &to = after[matches[i].after];
            if (from.bytes != to.bytes)
                rows.push_back({PartChange::Changed, &from, &to});
            else if (from.number != to.number || !kept[i])
                rows.push_back({PartChange::Moved, &from, &to});
        }
    }
    for (size_t i = 0; i < after.size(); ++i) {
        if (!isMatched[i])
            rows.push_back({PartChange::Added, nullptr, &after[i]});
    }
    std::stable_sort(rows.begin(), rows.end(),
                     [](const DiffRow &a, const DiffRow &b) { return GroupOf(a.Part()) < GroupOf(b.Part()); });
    return rows;
}
