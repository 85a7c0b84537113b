#pragma once

#include "TextPool.h"

#include <algorithm>

/// How much memory the texts of a file may take: enough for any honest file of its size, and no more.
class TextBudget
{
public:
    /// So many bytes of memory for each byte of the file, beside what any file gets.
    TextBudget(qsizetype fileSize, qsizetype perByte)
        : left(std::min(AT_LEAST + perByte * fileSize, TextPool::MOST_BYTES))
    {
    }

    /// False when the memory for a cell, or for so many characters of text, isn't granted.
    [[nodiscard]] bool GrantCell() { return Grant(CELL); }
    [[nodiscard]] bool GrantText(qsizetype length) { return Grant(qsizetype(sizeof(char16_t)) * length); }

private:
    static constexpr qsizetype AT_LEAST = 96 << 20;
    static constexpr qsizetype CELL = 32; // twice a Sheet::Cell: the list of cells moves when it grows

    [[nodiscard]] bool Grant(qsizetype size)
    {
        left -= size;
        return left >= 0;
    }

    qsizetype left;
};
