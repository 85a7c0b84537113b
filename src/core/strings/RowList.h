#pragma once

#include <cstddef>
#include <vector>

class CStringRes;

/// The heads of a table's rows in the order in which they are shown. Numbers count from 0. Owns nothing.
///
/// In blocks of bounded size, so that an insertion in the middle doesn't move all that follow.
class RowList
{
public:
    [[nodiscard]] int Count() const { return count; }
    /// Null for any number outside of the list.
    [[nodiscard]] CStringRes *At(int row) const;
    /// In front of the row of that number, or at the end.
    void Insert(int row, CStringRes *head);
    void Append(CStringRes *head) { Insert(count, head); }
    void Remove(int row);
    void Clear();
    /// The number of a row; -1 if it isn't here. Looks at all of them.
    [[nodiscard]] int Find(const CStringRes *head) const;

private:
    using Block = std::vector<CStringRes *>;
    struct Place
    {
        std::size_t block;
        std::size_t at;
    };
    [[nodiscard]] Place PlaceOf(int row) const;

    std::vector<Block> blocks; // none is empty
    int count = 0;
};
