// SPDX-License-Identifier: MIT
#include "MergeOrder.h"

namespace
{

class OrderMerge
{
public:
    OrderMerge(const MergeLists &versions, const std::vector<bool> &kept)
        : lists(versions), isKept(kept), sides(kept.size(), 0)
    {
        for (size_t side = BASE; side < MERGE_SIDES; ++side) {
            for (const int item : lists[side])
                sides[size_t(item)] |= quint8(1 << side);
        }
    }

    std::vector<int> Run()
    {
        const std::vector<int> before = Common(BASE);
        const bool isOursLeading = Common(OURS) != before || Common(THEIRS) == before;
        leading = isOursLeading ? OURS : THEIRS;
        other = isOursLeading ? THEIRS : OURS;
        CollectOthers();
        std::vector<int> merged;
        // The items of the other list wait until the new items of ours in the same place have been added.
        const std::vector<int> *waiting = &first;
        const auto add = [&] {
            merged.insert(merged.end(), waiting->begin(), waiting->end());
            waiting = &none;
        };
        if (!isOursLeading)
            add();
        for (const int item : lists[leading]) {
            if (!isKept[size_t(item)])
                continue;
            const bool isNew = sides[size_t(item)] == 1 << leading;
            if (!isNew)
                add();
            merged.push_back(item);
            if (!isNew && !followers.empty())
                waiting = &followers[size_t(item)];
            if (!isOursLeading)
                add();
        }
        add();
        return merged;
    }

private:
    /// Returns the items that all lists have, in the order of one of them.
    [[nodiscard]] std::vector<int> Common(MergeSide side) const
    {
        constexpr quint8 ALL = (1 << MERGE_SIDES) - 1;
        std::vector<int> items;
        for (const int item : lists[side]) {
            if (sides[size_t(item)] == ALL)
                items.push_back(item);
        }
        return items;
    }

    /// Finds for each item that only the other list has the item before it that both have.
    void CollectOthers()
    {
        std::vector<int> *place = &first;
        for (const int item : lists[other]) {
            if (!isKept[size_t(item)])
                continue;
            if (sides[size_t(item)] & 1 << leading) {
                if (followers.empty())
                    followers.resize(sides.size());
                place = &followers[size_t(item)];
            } else {
                place->push_back(item);
            }
        }
    }

    const MergeLists &lists;
    const std::vector<bool> &isKept;
    std::vector<quint8> sides; // of each item, a bit for each list that has it
    MergeSide leading = OURS;
    MergeSide other = THEIRS;
    std::vector<int> first;                  // the items of the other list before all that both have
    std::vector<std::vector<int>> followers; // those after each item that both have
    const std::vector<int> none;
};

} // namespace

std::vector<int> MergeOrder(const MergeLists &lists, const std::vector<bool> &isKept)
{
    return OrderMerge(lists, isKept).Run();
}
