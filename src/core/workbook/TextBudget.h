// SPDX-License-Identifier: MIT
#pragma once

#include "TextPool.h"

#include <algorithm>

/// Limits the memory that the texts of a file may take. The limit is enough for any valid file of its size.
class TextBudget
{
public:
    /// Grants `perByte` bytes of memory for each byte of the file, in addition to AT_LEAST.
    TextBudget(qsizetype fileSize, qsizetype perByte)
        : left(std::min(AT_LEAST + perByte * fileSize, TextPool::MOST_BYTES))
    {
    }

    /// These take the memory for a cell, or for a text of `length` characters, from the budget. False when it is used
    /// up.
    [[nodiscard]] bool GrantCell() { return Grant(CELL); }
    [[nodiscard]] bool GrantText(qsizetype length) { return Grant(qsizetype(sizeof(char16_t)) * length); }

private:
    static constexpr qsizetype AT_LEAST = 96 << 20;
    static constexpr qsizetype CELL = 32; // twice a Sheet::Cell: the list of cells is moved when it grows

    [[nodiscard]] bool Grant(qsizetype size)
    {
        left -= size;
        return left >= 0;
    }

    qsizetype left;
};
