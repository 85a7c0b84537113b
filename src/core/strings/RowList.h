// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>

#include <cstddef>
#include <memory>
#include <vector>

class CStringRes;

/// The heads of a table's rows in the order in which they are shown. Row numbers are from 0. It doesn't own the heads,
/// and no head is in it twice.
///
/// The heads are in blocks of limited size, so that an insertion in the middle doesn't move all the heads after it. A
/// tree has sums over the blocks: finding a row by number or by head takes time proportional to the logarithm of the
/// number of blocks.
class RowList
{
public:
    [[nodiscard]] int Count() const { return count; }
    /// Null for any number outside of the list.
    [[nodiscard]] CStringRes *At(int row) const;
    /// Inserts a head before the row of that number, or at the end.
    void Insert(int row, CStringRes *head);
    void Append(CStringRes *head) { Insert(count, head); }
    void Remove(int row);
    void Clear() { Assign({}); }
    /// Replaces all rows.
    void Assign(const std::vector<CStringRes *> &heads);
    /// Returns the number of a row; -1 if it isn't in the list.
    [[nodiscard]] int Find(const CStringRes *head) const;
    [[nodiscard]] bool Contains(const CStringRes *head) const { return blockOf.contains(head); }

private:
    struct Block
    {
        std::vector<CStringRes *> heads;
        std::size_t index = 0; // in `blocks`
    };
    struct Place
    {
        std::size_t block;
        std::size_t at;
    };
    [[nodiscard]] Place PlaceOf(int row) const;
    void Split(std::size_t block);
    void AddBlock(std::size_t index);
    void AddToSums(std::size_t block, int difference);
    void MakeSums();

    std::vector<std::unique_ptr<Block>> blocks; // none is empty
    // A Fenwick tree over the sizes of the blocks: entry i is the sum of the sizes from i - (i & -i) to i - 1. Entry 0
    // isn't used.
    std::vector<int> sums;
    QHash<const CStringRes *, Block *> blockOf;
    int count = 0;
};
