#include "RowList.h"

#include <algorithm>

namespace
{

constexpr size_t LARGEST_BLOCK = 1024; // heads

} // namespace

RowList::Place RowList::PlaceOf(int row) const
{
    auto rest = size_t(row);
    size_t block = 0;
    while (block < blocks.size() && rest >= blocks[block].size())
        rest -= blocks[block++].size();
    return {block, rest};
}

CStringRes *RowList::At(int row) const
{
    if (row < 0 || row >= count)
        return nullptr;
    const Place place = PlaceOf(row);
    return blocks[place.block][place.at];
}

void RowList::Insert(int row, CStringRes *head)
{
    Place place = PlaceOf(std::clamp(row, 0, count));
    if (place.block == blocks.size()) { // at the end
        if (blocks.empty() || blocks.back().size() == LARGEST_BLOCK)
            blocks.emplace_back();
        place = {blocks.size() - 1, blocks.back().size()};
    }
    Block &block = blocks[place.block];
    block.insert(block.begin() + ptrdiff_t(place.at), head);
    ++count;
    if (block.size() > LARGEST_BLOCK) {
        const auto middle = block.begin() + ptrdiff_t(LARGEST_BLOCK / 2);
        Block second(middle, block.end());
        block.erase(middle, block.end());
        blocks.insert(blocks.begin() + ptrdiff_t(place.block) + 1, std::move(second));
    }
}

void RowList::Remove(int row)
{
    if (row < 0 || row >= count)
        return;
    const Place place = PlaceOf(row);
    Block &block = blocks[place.block];
    block.erase(block.begin() + ptrdiff_t(place.at));
    if (block.empty())
        blocks.erase(blocks.begin() + ptrdiff_t(place.block));
    --count;
}

void RowList::Clear()
{
    blocks.clear();
    count = 0;
}

int RowList::Find(const CStringRes *head) const
{
    int before = 0;
    for (const Block &block : blocks) {
        const auto found = std::find(block.begin(), block.end(), head);
        if (found != block.end())
            return before + int(found - block.begin());
        before += int(block.size());
    }
    return -1;
}
