// SPDX-License-Identifier: MIT
#include "RowList.h"

#include <algorithm>
#include <bit>

namespace
{

constexpr size_t LARGEST_BLOCK = 1024; // heads

size_t LowestBit(size_t number)
{
    return number & (~number + 1);
}

} // namespace

RowList::Place RowList::PlaceOf(int row) const
{
    size_t block = 0;
    for (size_t step = std::bit_floor(blocks.size()); step > 0; step /= 2) {
        if (block + step < sums.size() && sums[block + step] <= row) {
            block += step;
            row -= sums[block];
        }
    }
    return {block, size_t(row)};
}

CStringRes *RowList::At(int row) const
{
    if (row < 0 || row >= count)
        return nullptr;
    const Place place = PlaceOf(row);
    return blocks[place.block]->heads[place.at];
}

void RowList::AddToSums(size_t block, int difference)
{
    for (size_t i = block + 1; i < sums.size(); i += LowestBit(i))
        sums[i] += difference;
}

void RowList::MakeSums()
{
    sums.assign(blocks.size() + 1, 0);
    for (size_t i = 1; i < sums.size(); ++i) {
        blocks[i - 1]->index = i - 1;
        sums[i] += int(blocks[i - 1]->heads.size());
        if (const size_t next = i + LowestBit(i); next < sums.size())
            sums[next] += sums[i];
    }
}

void RowList::AddBlock(size_t index)
{
    blocks.insert(blocks.begin() + ptrdiff_t(index), std::make_unique<Block>());
    blocks[index]->heads.reserve(LARGEST_BLOCK + 1);
}

void RowList::Insert(int row, CStringRes *head)
{
    Place place = PlaceOf(std::clamp(row, 0, count));
    if (place.block == blocks.size()) { // at the end
        if (blocks.empty() || blocks.back()->heads.size() == LARGEST_BLOCK) {
            AddBlock(blocks.size());
            MakeSums();
        }
        place = {blocks.size() - 1, blocks.back()->heads.size()};
    }
    Block &block = *blocks[place.block];
    block.heads.insert(block.heads.begin() + ptrdiff_t(place.at), head);
    blockOf.insert(head, &block);
    AddToSums(place.block, 1);
    ++count;
    if (block.heads.size() > LARGEST_BLOCK)
        Split(place.block);
}

void RowList::Split(size_t block)
{
    AddBlock(block + 1);
    std::vector<CStringRes *> &first = blocks[block]->heads;
    Block &second = *blocks[block + 1];
    const auto middle = first.begin() + ptrdiff_t(LARGEST_BLOCK / 2);
    second.heads.assign(middle, first.end());
    first.erase(middle, first.end());
    for (const CStringRes *head : second.heads)
        blockOf.insert(head, &second);
    MakeSums();
}

void RowList::Remove(int row)
{
    if (row < 0 || row >= count)
        return;
    const Place place = PlaceOf(row);
    std::vector<CStringRes *> &heads = blocks[place.block]->heads;
    blockOf.remove(heads[place.at]);
    heads.erase(heads.begin() + ptrdiff_t(place.at));
    AddToSums(place.block, -1);
    --count;
    if (heads.empty()) {
        blocks.erase(blocks.begin() + ptrdiff_t(place.block));
        MakeSums();
    }
}

void RowList::Assign(const std::vector<CStringRes *> &heads)
{
    blocks.clear();
    blockOf.clear();
    blockOf.reserve(qsizetype(heads.size()));
    count = int(heads.size());
    for (size_t at = 0; at < heads.size(); ++at) {
        if (at % LARGEST_BLOCK == 0)
            AddBlock(blocks.size());
        blocks.back()->heads.push_back(heads[at]);
        blockOf.insert(heads[at], blocks.back().get());
    }
    MakeSums();
}

int RowList::Find(const CStringRes *head) const
{
    const Block *const block = blockOf.value(head);
    if (!block)
        return -1;
    int row = int(std::find(block->heads.begin(), block->heads.end(), head) - block->heads.begin());
    for (size_t i = block->index; i > 0; i -= LowestBit(i))
        row += sums[i];
    return row;
}
